// The station with its server on 127.0.0.1, against real TCP clients in the same process.
// Every wait is bounded; the port is chosen by the system.
#include "core/date_value.h"
#include "server/jis_block.h"
#include "server/jis_server.h"
#include "station_test.h"
#include "ui/main/main_window.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QLabel>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>
#include <QTimer>

#include <sys/socket.h>

#include <algorithm>
#include <functional>
#include <memory>

using namespace tarvelle;

namespace {

// Runs the event loop until done() or the time is up; true when done.
bool Serve(const std::function<bool()>& done, int ms = 5000) {
    QDeadlineTimer deadline(ms);
    while (!done()) {
        if (deadline.hasExpired()) return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        QThread::usleep(200);
    }
    return true;
}

class JisLoopbackTest : public StationTest {
protected:
    void SetUp() override {
        StationTest::SetUp();
        settings->save("Settings", "RunJIS", "1");
        settings->save("Settings", "JISPort", "0"); // the system picks a free port
        form = std::make_unique<Form1>(*station);
        form->Load();
        ASSERT_TRUE(form->JISRunning()) << form->JISFailure().toStdString();
        port = form->Socket1().ListeningPort();
        ASSERT_NE(port, 0);
    }

    std::unique_ptr<QTcpSocket> Connect() {
        auto c = std::make_unique<QTcpSocket>();
        c->connectToHost(QHostAddress::LocalHost, port);
        EXPECT_TRUE(Serve([&] { return c->state() == QAbstractSocket::ConnectedState && form->Socket1().IsConnected(); }));
        return c;
    }

    // Reads until n bytes came (and nothing more within a short wait).
    static QByteArray Read(QTcpSocket& c, qsizetype n) {
        QByteArray got;
        Serve([&] {
            got += c.readAll();
            return got.size() >= n;
        });
        Serve([] { return false; }, 30);
        return got + c.readAll();
    }
    static QByteArray Ask(QTcpSocket& c, const QByteArray& request, qsizetype n) {
        c.write(request);
        return Read(c, n);
    }

    std::string Expected() const {
        return BuildJISBlock(station->server, CurrentJisValues(*station, form->Label3->text().toStdString()));
    }

    std::unique_ptr<Form1> form;
    uint16_t port = 0;
};

} // namespace

TEST_F(JisLoopbackTest, RequestsAreAnsweredByteForByte) {
    auto client = Connect();
    // Nothing is sent on connecting.
    Serve([] { return false; }, 100);
    EXPECT_EQ(client->bytesAvailable(), 0);

    // P moves the station and the block that follows says so.
    const QByteArray moved = Ask(*client, "P43000.5", 100);
    EXPECT_FALSE(core().RealTimeMode);
    EXPECT_EQ(core().CurrentUT, 43000.5);
    EXPECT_EQ(station->fixed.FixedUT, 43000.5);
    EXPECT_NE(Form1::TaggedWindow("cmio"), nullptr) << "the plane was opened";
    EXPECT_TRUE(moved.startsWith("Year = 2017\r\nMonth = 09\r\nDay = 22\r\nHour = 12\r\nMinute = 00\r\nSecond = 00\r\n"))
        << moved.toStdString();
    EXPECT_EQ(moved.toStdString(), Expected());
    EXPECT_FALSE(form->Timer1()->isActive()) << "fixed time stops the tick";

    // All groups off writes nothing but counts as sent; all on, byte for byte (every combination
    // of groups is checked on the block itself in jis_block_test).
    ServerSchedule& p = station->server;
    for (bool on : {false, true}) {
        p.JIStime = p.JISjupALTAZ = p.JISjupCMLIO = p.JISjupMODE = p.JISsun = on;
        clock.local += 1.0 / 86400.0;
        const std::string expected = Expected();
        EXPECT_EQ(Ask(*client, "J", static_cast<qsizetype>(expected.size())).toStdString(), expected) << on;
        EXPECT_EQ(p.LastJISSend, clock.local) << on;
    }

    // Lower case is ignored; a request with both letters gets two blocks.
    EXPECT_TRUE(Ask(*client, "j", 1).isEmpty());
    const std::string before = Expected();
    const QByteArray both = Ask(*client, "P43001J", static_cast<qsizetype>(2 * before.size()) - 20);
    EXPECT_EQ(core().CurrentUT, 43001.0);
    EXPECT_EQ(both.toStdString(), before + Expected()) << "the block, then the move and its block";
}

// A second client cuts off the first; a one-shot client ("printf J | socat - TCP:...") closes its
// side right after asking and still gets the block.
TEST_F(JisLoopbackTest, ASecondClientCutsOffTheFirstAndAHalfClosedOneIsAnswered) {
    auto first = Connect();
    ASSERT_FALSE(Ask(*first, "J", 10).isEmpty());
    auto second = std::make_unique<QTcpSocket>();
    second->connectToHost(QHostAddress::LocalHost, port);
    EXPECT_TRUE(Serve([&] { return first->state() == QAbstractSocket::UnconnectedState; }));
    ASSERT_TRUE(Serve([&] { return second->state() == QAbstractSocket::ConnectedState && form->Socket1().IsConnected(); }));
    EXPECT_EQ(Ask(*second, "J", 10).toStdString(), Expected());

    auto client = Connect();
    const std::string expected = Expected();
    client->write("J");
    client->flush();
    ASSERT_EQ(::shutdown(static_cast<int>(client->socketDescriptor()), SHUT_WR), 0);
    EXPECT_EQ(Read(*client, static_cast<qsizetype>(expected.size())).toStdString(), expected);
}

TEST_F(JisLoopbackTest, PushesWhenThePeriodHasRunOut) {
    station->server.PushJIS = 1;
    station->server.JISMin = 1;
    form->Timer1Tick(); // no client: nothing sent, and the clock of the last sending stays
    EXPECT_EQ(station->server.LastJISSend, 0.0);
    auto client = Connect();
    QByteArray got;
    const auto tickAt = [&](double secondsLater) {
        clock.local += secondsLater / 86400.0;
        form->Timer1Tick();
        Serve([] { return false; }, 50);
        got += client->readAll();
        return got.count("Year = ");
    };
    // Seconds since the previous tick, and the blocks received so far: one a minute.
    const std::pair<double, int> ticks[] = {{0, 1}, {30, 1}, {29, 1}, {2, 2}, {59, 2}, {2, 3}};
    for (const auto& [later, blocks] : ticks) EXPECT_EQ(tickAt(later), blocks) << later;
}

TEST_F(JisLoopbackTest, AbuseLeavesTheStationTickingAndAnswering) {
    // Connect and drop, many times.
    int cycles = 0;
    QDeadlineTimer budget(120000);
    for (; cycles < 10000 && !budget.hasExpired(); ++cycles) {
        QTcpSocket c;
        c.connectToHost(QHostAddress::LocalHost, port);
        c.waitForConnected(1000);
        if (cycles % 2 == 0) c.write("J");
        c.abort();
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(cycles, 10000) << "cycles within the time allowed";

    // A megabyte of data holding neither letter.
    auto noisy = Connect();
    QByteArray garbage(1 << 20, '\0');
    for (qsizetype i = 0; i < garbage.size(); ++i) garbage[i] = static_cast<char>(i * 7919 % 64); // below 'J' and 'P'
    noisy->write(garbage);
    EXPECT_EQ(Ask(*noisy, "J", 50).toStdString(), Expected());

    // A client that asks and never reads: the station goes on serving, and what piles up
    // unread is bounded; past the bound the client is cut off.
    auto deaf = Connect();
    deaf->setReadBufferSize(1);
    for (int i = 0; i < 2000; ++i) {
        deaf->write("J");
        deaf->flush();
        QCoreApplication::processEvents();
    }
    const QByteArray chunk(64 * 1024, 'x');
    qint64 most = 0;
    for (int i = 0; i < 1000 && form->Socket1().IsConnected(); ++i) {
        form->Socket1().Write(chunk);
        most = std::max(most, form->Socket1().Backlog());
        QCoreApplication::processEvents();
    }
    EXPECT_FALSE(form->Socket1().IsConnected()) << "cut off with " << most << " bytes waiting";
    EXPECT_LE(most, JisServer::kMaxBacklog);

    // Still ticking on time, still answering.
    EXPECT_TRUE(form->Timer1()->isActive());
    clock.local += 1.0 / 86400.0;
    form->Timer1Tick();
    EXPECT_TRUE(form->Timer1()->isActive());
    auto last = Connect();
    EXPECT_EQ(Ask(*last, "J", 50).toStdString(), Expected());
}

// A port below 32768 (the configurable range) that is free, with the one above it.
uint16_t FreePortPair() {
    for (uint16_t p = 21000; p < 32000; p += 2) {
        QTcpServer a, b;
        if (a.listen(QHostAddress::LocalHost, p) && b.listen(QHostAddress::LocalHost, p + 1)) return p;
    }
    return 0;
}

TEST_F(JisLoopbackTest, AFailedStartIsToldAndTheNextStartTriesAgain) {
    const uint16_t p = FreePortPair();
    ASSERT_NE(p, 0);
    QTcpServer squatter; // someone else holds a port
    const struct { QString ip; uint16_t taken; } failing[] = {
        {"127.0.0.1", p}, {"127.0.0.1", static_cast<uint16_t>(p + 1)}, {"192.0.2.77", 0}, {"not an address", 0}};
    for (const auto& f : failing) {
        squatter.close();
        if (f.taken) { ASSERT_TRUE(squatter.listen(QHostAddress::LocalHost, f.taken)); }
        station->server.JISIP = f.ip;
        station->server.JISPort = static_cast<int16_t>(p);
        form->StartJIS();
        EXPECT_FALSE(form->JISRunning()) << f.ip.toStdString() << " " << f.taken;
        EXPECT_FALSE(form->JISFailure().isEmpty());
        EXPECT_TRUE(form->LBLQ->text().contains(form->JISFailure()));
        EXPECT_FALSE(form->Socket1().Listening());
    }
    squatter.close();
    station->server.JISIP = "127.0.0.1";
    form->StartJIS();
    ASSERT_TRUE(form->JISRunning());
    EXPECT_TRUE(form->JISFailure().isEmpty());
    // Stopped and started again, it listens on the same port.
    form->StopJIS();
    form->StartJIS();
    ASSERT_TRUE(form->JISRunning());
    EXPECT_EQ(form->Socket1().ListeningPort(), p);
    port = p;
    auto client = Connect();
    EXPECT_EQ(Ask(*client, "J", 50).toStdString(), Expected());
}
