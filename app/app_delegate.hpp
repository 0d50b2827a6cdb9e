#pragma once

class QObject;

namespace larkvox {

class SparkleHelper;

/// Hears of the application's life: gives it the dark appearance once it has started. Main thread.
class AppDelegate {
  public:
    /// The helper that `LarkvoxApp` owns; null until it has set it.
    SparkleHelper* sparkleHelper = nullptr;

    /// `object` is who tells. Anything but the application object changes nothing.
    void applicationDidFinishLaunching(QObject* object);
};

} // namespace larkvox
