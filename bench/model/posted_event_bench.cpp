// The cost of one change to the thread that makes it, over the main queue and as a posted Qt event
// in turn, both into the same running event loop. Fails when a change is not delivered.
#include "bench/model/bench_support.hpp"

#include <QCoreApplication>
#include <QEvent>
#include <QSocketNotifier>
#include <QTimer>

#include <cstdlib>
#include <cstring>

namespace {

constexpr long burst = 1024;
constexpr long inARow = 20;

/// Wakes the Qt event loop through a descriptor.
class QtWaker final : public QObject, public core::Waker {
  public:
    explicit QtWaker(core::MainQueue& queue)
        : queue_(queue), notifier_(descriptor_, QSocketNotifier::Read) {
        connect(&notifier_, &QSocketNotifier::activated, this, [this] {
            std::uint64_t count = 0;
            [[maybe_unused]] const auto taken = read(descriptor_, &count, sizeof count);
            pump();
        });
        timer_.setSingleShot(true);
        timer_.setTimerType(Qt::PreciseTimer);
        connect(&timer_, &QTimer::timeout, this, &QtWaker::pump);
        queue.addWaker(*this);
    }
    ~QtWaker() override {
        queue_.removeWaker(*this);
        close(descriptor_);
    }
    QtWaker(const QtWaker&) = delete;
    QtWaker& operator=(const QtWaker&) = delete;
    void wake() noexcept override {
        const std::uint64_t one = 1;
        [[maybe_unused]] const auto written = write(descriptor_, &one, sizeof one);
    }

  private:
    void pump() {
        const auto next = queue_.pump(1024);
        if (next != core::MainQueue::Next::whenWoken) {
            timer_.start(next == core::MainQueue::Next::soon ? 1 : 0);
        }
    }

    core::MainQueue& queue_;
    QTimer timer_;
    int descriptor_ = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    QSocketNotifier notifier_;
};

/// What a change carries: the parameter and its new value.
class ChangeEvent final : public QEvent {
  public:
    ChangeEvent(std::size_t indexOfParameter, float newValue)
        : QEvent(QEvent::User), index(indexOfParameter), value(newValue) {}
    const std::size_t index;
    const float value;
};

/// A value with one observer, as the model has it.
class Receiver final : public QObject {
  public:
    Receiver() {
        for (long i = 0; i < burst; ++i) {
            values.push_back(std::make_unique<core::Observable<float>>(0.0F));
            subscriptions.push_back(values.back()->observe([this](float) { ++delivered; }));
        }
    }
    void set(std::size_t index, float value) { values[index]->set(value); }
    bool event(QEvent* event) override {
        if (event->type() != QEvent::User) {
            return QObject::event(event);
        }
        const auto* const change = static_cast<ChangeEvent*>(event);
        set(change->index, change->value);
        return true;
    }
    std::vector<std::unique_ptr<core::Observable<float>>> values;
    std::vector<core::Subscription> subscriptions;
    std::atomic<long> delivered{0};
};

double median(std::vector<double>& samples) {
    std::sort(samples.begin(), samples.end());
    return samples[samples.size() / 2];
}

} // namespace

int main(int count, char** arguments) {
    const QCoreApplication application(count, arguments);
    const int rounds = count > 1 && std::strcmp(arguments[1], "short") == 0 ? 2 : 30;
    core::MainQueue queue;
    const QtWaker waker(queue);
    bench::Parameters parameters(burst, queue);
    Receiver receiver;
    std::vector<double> ours;
    std::vector<double> posted;
    std::vector<double> invoked;
    std::thread writer([&] {
        long n = 0;
        // Some bursts of a kind in a row, each after the one before has been delivered.
        const auto measure = [&](std::vector<double>& samples, const std::atomic<long>& delivered,
                                 const auto& send) {
            const long before = delivered;
            auto next = bench::Clock::now();
            for (long round = 1; round <= inARow; ++round) {
                const auto start = bench::Clock::now();
                for (std::size_t i = 0; i < burst; ++i) {
                    send(i, bench::valueAt(n++));
                }
                samples.push_back(bench::nanosecondsSince(start) / burst);
                do {
                    std::this_thread::sleep_until(next += std::chrono::milliseconds(2));
                } while (delivered < before + round * burst);
            }
        };
        for (int round = 0; round < rounds; ++round) {
            measure(ours, parameters.delivered, [&](std::size_t i, float value) {
                parameters.all[i]->setValue(value, fernhorn::ParameterEditor::parameterObserver,
                                            fernhorn::ParameterEditorState::change);
            });
            measure(posted, receiver.delivered, [&](std::size_t i, float value) {
                QCoreApplication::postEvent(&receiver, new ChangeEvent(i, value));
            });
            measure(invoked, receiver.delivered, [&](std::size_t i, float value) {
                QMetaObject::invokeMethod(
                    &receiver, [&receiver, i, value] { receiver.set(i, value); },
                    Qt::QueuedConnection);
            });
        }
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    });
    QCoreApplication::exec();
    writer.join();
    queue.drain();

    const double own = median(ours);
    bench::printSamples("posted_event_ns", posted, "ns");
    bench::printSamples("invoke_method_ns", invoked, "ns");
    bench::printSamples("set_value_beside_events_ns", ours, "ns");
    bench::print("set_value_vs_posted_event", median(posted) / own, "times");
    bench::print("set_value_vs_invoke_method", median(invoked) / own, "times");
    const long sent = burst * inARow * rounds;
    if (parameters.delivered != sent || receiver.delivered != 2 * sent) {
        std::fprintf(stderr, "FAILED: of %ld: %ld by the queue; of %ld: %ld by events\n", sent,
                     parameters.delivered.load(), 2 * sent, receiver.delivered.load());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
