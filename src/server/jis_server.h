// The information server on TCP: one listening socket on JISIP:JISPort, the port above it
// held as well, and at most one client. A new client replaces the old one, which is cut off
// without a word. The protocol itself (what a client's data asks for, the block) is in
// jis_block.h; this class only moves bytes and reports requests.
//
// Sequence of use: Start(ip, port) (again after Stop to listen anew), then serve
// blockRequested() with Write(block) and moveRequested(t) as the station sees fit; Stop() cuts
// the client off and stops listening.
#pragma once

#include <QHostAddress>
#include <QObject>
#include <QPointer>
#include <QString>

#include <cstdint>
#include <optional>

class QTcpServer;
class QTcpSocket;

namespace tarvelle {

class JisServer : public QObject {
    Q_OBJECT
public:
    explicit JisServer(QObject* parent = nullptr);
    ~JisServer() override;

    // Listens on ip:port and holds port + 1. Nothing, or why it could not, in plain words.
    std::optional<QString> Start(const QString& ip, int port);
    void Stop();
    bool Listening() const;
    // The port actually listened on (the given one; useful when 0 asked the system to choose).
    uint16_t ListeningPort() const;

    bool IsConnected() const;
    void Disconnect();
    // Sends to the client. A client that has let more than kMaxBacklog bytes pile up unread
    // is cut off, so that it cannot make the station hoard memory.
    void Write(const QByteArray& data);

    static constexpr qint64 kMaxBacklog = 1 << 20;
    // Bytes written to the client that have not left yet.
    qint64 Backlog() const;

signals:
    void blockRequested();
    void moveRequested(double t);
    // A client was accepted or went away.
    void clientChanged();

private:
    void Accept();
    void Read();

    QTcpServer* listener_ = nullptr;
    QTcpSocket* reserved_ = nullptr; // holds the port above the listening one
    QPointer<QTcpSocket> client_;
    bool accepting_ = false;
};

} // namespace tarvelle
