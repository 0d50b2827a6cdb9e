#pragma once

#include "platform/testing/window_testing.hpp"
#include "updates/session/update_limits.hpp"
#include "updates/testing/https_server.hpp"

#include <QThread>

#include <gmock/gmock.h>

#include <functional>
#include <memory>

namespace updates::testing {

/// The certificates of a test program, made once.
inline const CertificateFolder& certificates() {
    static const CertificateFolder folder;
    return folder;
}

/// The product's bounds with shorter times.
inline UpdateLimits hastyLimits() {
    using namespace std::chrono_literals;
    UpdateLimits limits;
    limits.answerTime = 2500ms;
    limits.stallTime = 600ms;
    limits.documentTime = 1500ms;
    limits.downloadTime = 4000ms;
    limits.leastBytesPerSecond = 40'000;
    limits.resumptionPause = 5ms;
    return limits;
}

/// Has another thread do what blocks, while this one serves.
inline void runAside(const std::function<void()>& work) {
    const std::unique_ptr<QThread> thread(QThread::create(work));
    thread->start();
    EXPECT_TRUE(platform::testing::runUntil([&] { return thread->isFinished(); }, 60'000));
    thread->wait();
}

} // namespace updates::testing
