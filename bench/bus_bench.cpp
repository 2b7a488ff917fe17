// What ReadData64 of 100000 samples costs over the session bus, beside the same bytes through a pipe and as
// one array message of the bus. The other side of each is this program once more, as a process of its own.
#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QThread>
#include <algorithm>
#include <cstdio>
#include <numeric>
#include <stdexcept>
#include <string_view>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

#include "app/bus_host.h"
#include "app/bus_names.h"
#include "app/bus_service.h"
#include "app/memory_host.h"
#include "app/quiet_shell.h"
#include "timing.h"

namespace trendaro::bench {
namespace {

constexpr i32 kSamples = 100000;
constexpr int kRuns = 201;
constexpr char kArrayPath[] = "/samples";

// Answers every call with the samples as an array.
class ArrayObject : public QDBusVirtualObject {
 public:
  explicit ArrayObject(QList<double> samples) : samples_(std::move(samples)) {}

  bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
    return bus.send(message.createReply(QVariant::fromValue(samples_)));
  }
  [[nodiscard]] QString introspect(const QString&) const override { return {}; }

 private:
  QList<double> samples_;
};

std::vector<f64> samples_of_the_bench() {
  std::vector<f64> samples(kSamples);
  std::iota(samples.begin(), samples.end(), 0.5);
  return samples;
}

int serve() {
  const std::vector<f64> samples = samples_of_the_bench();
  QuietShell shell;
  MemoryHost host(shell, 1, kSamples);
  host.KSD_WriteToDatabaseEx(1, 1, samples, 0);
  BusService service(host, host);
  ArrayObject array(QList<double>(samples.begin(), samples.end()));
  QDBusConnection bus = QDBusConnection::sessionBus();
  const bool served = service.serve(bus, QLatin1String(kHostPath)) &&
                      bus.registerVirtualObject(QLatin1String(kArrayPath), &array) &&
                      bus.registerService(QLatin1String(kHostService));
  return served ? QCoreApplication::exec() : 1;
}

// A child that writes the samples into a pipe for every byte that it reads from another.
class PipeSource {
 public:
  PipeSource() {
    int orders[2];
    int answers[2];
    if (::pipe(orders) != 0 || ::pipe(answers) != 0 || (child_ = ::fork()) < 0)
      throw std::runtime_error("no pipe");
    if (child_ == 0) {
      ::close(orders[1]);
      obey(orders[0], answers[1]);
    }
    ::close(orders[0]);
    ::close(answers[1]);
    order_ = orders[1];
    answer_ = answers[0];
  }
  ~PipeSource() {
    ::close(order_);
    ::close(answer_);
    ::waitpid(child_, nullptr, 0);
  }
  PipeSource(const PipeSource&) = delete;
  PipeSource& operator=(const PipeSource&) = delete;

  void read(std::span<f64> values) const {
    if (::write(order_, "r", 1) != 1) throw std::runtime_error("the child is gone");
    auto* place = reinterpret_cast<char*>(values.data());
    for (std::size_t left = values.size_bytes(); left > 0;) {
      const ssize_t read = ::read(answer_, place, left);
      if (read <= 0) throw std::runtime_error("the child is gone");
      place += read;
      left -= static_cast<std::size_t>(read);
    }
  }

 private:
  [[noreturn]] static void obey(int orders, int answers) {
    const std::vector<f64> samples = samples_of_the_bench();
    char order = 0;
    while (::read(orders, &order, 1) == 1) {
      const auto* place = reinterpret_cast<const char*>(samples.data());
      for (std::size_t left = kSamples * sizeof(f64); left > 0;) {
        const ssize_t written = ::write(answers, place, left);
        if (written <= 0) ::_exit(1);
        place += written;
        left -= static_cast<std::size_t>(written);
      }
    }
    ::_exit(0);
  }

  pid_t child_ = 0;
  int order_ = -1;
  int answer_ = -1;
};

void read_array(QDBusConnection& bus, std::vector<f64>& values) {
  const QDBusMessage answer =
      bus.call(QDBusMessage::createMethodCall(QLatin1String(kHostService), QLatin1String(kArrayPath),
                                              QStringLiteral("bench.samples"), QStringLiteral("Read")));
  if (answer.type() != QDBusMessage::ReplyMessage) throw std::runtime_error("no array came");
  const auto array = qdbus_cast<QList<double>>(answer.arguments().first());
  std::copy(array.begin(), array.end(), values.begin());
}

// All three take turns, so that a busy machine slows each of them.
void measure(const PipeSource& pipe) {
  QDBusConnection bus = QDBusConnection::sessionBus();
  BusHost host(bus, {QLatin1String(kHostService), QLatin1String(kHostPath)});
  std::vector<f64> by_pipe(kSamples);
  std::vector<f64> by_bus(kSamples);
  std::vector<f64> by_array(kSamples);
  std::vector<f64> times[3];
  for (int run = 0; run < kRuns; ++run) {
    times[0].push_back(milliseconds([&] { pipe.read(by_pipe); }));
    times[1].push_back(milliseconds([&] { host.ReadData64(1, by_bus); }));
    times[2].push_back(milliseconds([&] { read_array(bus, by_array); }));
  }
  if (by_bus != by_pipe || by_array != by_pipe) throw std::runtime_error("other samples came");
  const f64 limit = median(times[0]);
  std::printf("%-32s%10s%10s%8s%9s\n", "100000 samples", "ms", "pipe, ms", "ratio", "at most");
  std::printf("%-32s%10.3f%10.3f%8.2f%9.2f\n", "ReadData64 over the bus", median(times[1]), limit,
              median(times[1]) / limit, 5.0);
  std::printf("%-32s%10.3f%10.3f%8.2f\n", "as an array message", median(times[2]), limit,
              median(times[2]) / limit);
}

void wait_for_service(const QProcess& server) {
  while (!QDBusConnection::sessionBus().interface()->isServiceRegistered(QLatin1String(kHostService))) {
    if (server.state() == QProcess::NotRunning) throw std::runtime_error("no server");
    QThread::msleep(5);
  }
}

}  // namespace
}  // namespace trendaro::bench

int main(int argument_count, char** arguments) {
  using namespace trendaro::bench;
  if (argument_count > 1 && std::string_view(arguments[1]) == "--serve") {
    const QCoreApplication application(argument_count, arguments);
    return serve();
  }
  const PipeSource pipe;  // ahead of all threads
  const QCoreApplication application(argument_count, arguments);
  QProcess server;
  server.setProcessChannelMode(QProcess::ForwardedChannels);
  server.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--serve")});
  server.waitForStarted();
  wait_for_service(server);
  measure(pipe);
  server.kill();
  server.waitForFinished();
  return 0;
}
