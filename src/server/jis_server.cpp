#include "server/jis_server.h"

#include "server/jis_block.h"

#include <QCoreApplication>
#include <QTcpServer>
#include <QTcpSocket>

namespace tarvelle {

namespace {

std::optional<QHostAddress> ParseAddress(const QString& ip) {
    QHostAddress address;
    if (!address.setAddress(ip.trimmed())) return std::nullopt;
    return address;
}

QString Where(const QString& ip, int port) { return ip.trimmed() + ":" + QString::number(port); }

} // namespace

JisServer::JisServer(QObject* parent) : QObject(parent) {}

JisServer::~JisServer() { Stop(); }

std::optional<QString> JisServer::Start(const QString& ip, int port) {
    Stop();
    const auto address = ParseAddress(ip);
    if (!address) return "\"" + ip + "\" is not an IP address.";
    if (port < 0 || port > 65534) return "Port " + QString::number(port) + " is out of range.";
    // Port 0 lets the system choose; it is asked again when the port above its choice is taken.
    const int attempts = port == 0 ? 20 : 1;
    for (int attempt = 1;; ++attempt) {
        listener_ = new QTcpServer(this);
        if (!listener_->listen(*address, static_cast<quint16>(port))) {
            const QString why = "Cannot listen on " + Where(ip, port) + ": " + listener_->errorString();
            Stop();
            return why;
        }
        const int actual = listener_->serverPort();
        reserved_ = new QTcpSocket(this);
        if (reserved_->bind(*address, static_cast<quint16>(actual + 1))) break;
        const QString why = "Cannot take port " + Where(ip, actual + 1) + ": " + reserved_->errorString();
        Stop();
        if (attempt == attempts) return why;
    }
    connect(listener_, &QTcpServer::newConnection, this, &JisServer::Accept);
    return std::nullopt;
}

// The sockets are closed at once, so that the ports are free for the next Start, and
// deleted later, since Stop may run inside one of their own events.
void JisServer::Stop() {
    Disconnect();
    if (listener_) {
        listener_->disconnect(this);
        listener_->close();
        listener_->deleteLater();
        listener_ = nullptr;
    }
    if (reserved_) {
        reserved_->abort();
        reserved_->deleteLater();
        reserved_ = nullptr;
    }
}

bool JisServer::Listening() const { return listener_ && listener_->isListening(); }

uint16_t JisServer::ListeningPort() const { return Listening() ? listener_->serverPort() : 0; }

bool JisServer::IsConnected() const {
    return client_ && client_->state() == QAbstractSocket::ConnectedState;
}

qint64 JisServer::Backlog() const { return IsConnected() ? client_->bytesToWrite() : 0; }

void JisServer::Disconnect() {
    if (!client_) return;
    QTcpSocket* old = client_;
    client_ = nullptr;
    old->disconnect(this);
    old->abort();
    old->deleteLater();
    emit clientChanged();
}

void JisServer::Write(const QByteArray& data) {
    if (!IsConnected()) return;
    if (client_->bytesToWrite() + data.size() > kMaxBacklog) {
        Disconnect();
        return;
    }
    client_->write(data);
    // Out at once: a client that sends its request and then closes its side still gets the
    // block, which would otherwise wait for the event loop and be dropped with the socket.
    client_->flush();
}

// Each request replaces the client; of several waiting at once, the last one stays.
void JisServer::Accept() {
    if (accepting_) return; // the running loop below takes what arrives during its yields
    accepting_ = true;
    while (listener_ && listener_->hasPendingConnections()) {
        QTcpSocket* next = listener_->nextPendingConnection();
        if (client_) {
            Disconnect();
            QCoreApplication::processEvents();
        }
        if (!listener_) { // stopped meanwhile
            next->abort();
            next->deleteLater();
            break;
        }
        client_ = next;
        connect(next, &QTcpSocket::readyRead, this, &JisServer::Read);
        connect(next, &QTcpSocket::disconnected, this, [this, next] {
            if (client_ == next) Disconnect();
        });
        emit clientChanged();
        QCoreApplication::processEvents();
    }
    accepting_ = false;
}

void JisServer::Read() {
    auto* socket = qobject_cast<QTcpSocket*>(sender());
    if (!socket) return;
    const QByteArray data = socket->readAll();
    const JisRequest r = ReadJISRequest(std::string_view(data.constData(), static_cast<size_t>(data.size())));
    if (r.sendBlock) emit blockRequested();
    if (r.moveTo) emit moveRequested(*r.moveTo);
}

} // namespace tarvelle
