// The information server: from a "J" request to the block's last byte at the client, over
// loopback, 1,000 requests. Budget: p99 <= 5 ms. Reports the median and the 99th percentile.
#include "core/date_value.h"
#include "server/jis_server.h"
#include "ui/main/main_window.h"
#include "bench_station.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QTcpSocket>

#include <algorithm>
#include <vector>

using namespace tarvelle;

namespace {

// The station with its server on a port the system picks.
struct ServerBench : Bench {
    ServerBench() {
        settings.save("Settings", "RunJIS", "1");
        settings.save("Settings", "JISPort", "0");
    }
};

double Percentile(std::vector<double> v, double p) {
    std::sort(v.begin(), v.end());
    return v[static_cast<size_t>(p * static_cast<double>(v.size() - 1))];
}

void BM_JisRequestToLastByte(benchmark::State& state) {
    ServerBench b;
    Form1 form(b.station);
    form.Load();
    QTcpSocket client;
    client.connectToHost(QHostAddress::LocalHost, form.Socket1().ListeningPort());
    while (!(client.state() == QAbstractSocket::ConnectedState && form.Socket1().IsConnected()))
        QCoreApplication::processEvents();
    // The size of one block, taken once.
    client.write("J");
    QByteArray first;
    while (first.count("\r\n") < 14) { // every option is on: fourteen lines
        QCoreApplication::processEvents();
        first += client.readAll();
    }
    const qsizetype size = first.size();

    std::vector<double> seconds;
    for (auto _ : state) {
        QElapsedTimer t;
        t.start();
        client.write("J");
        qsizetype got = 0;
        while (got < size) {
            QCoreApplication::processEvents();
            got += client.readAll().size();
        }
        const double s = static_cast<double>(t.nsecsElapsed()) * 1e-9;
        state.SetIterationTime(s);
        seconds.push_back(s);
    }
    state.counters["median_us"] = Percentile(seconds, 0.5) * 1e6;
    state.counters["p99_us"] = Percentile(seconds, 0.99) * 1e6;
    state.counters["block_bytes"] = static_cast<double>(size);
}
BENCHMARK(BM_JisRequestToLastByte)->Iterations(1000)->UseManualTime()->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
