#pragma once

#include <QUrl>

#include <functional>

namespace platform {

/// What the desktop does for a program. Tests put their own in its place. Main thread.
class Workspace {
  public:
    virtual ~Workspace() = default;

    /// Opens an address with the user's program for it. False when the desktop has none.
    virtual bool open(const QUrl& url) = 0;

    /// The user's desktop.
    static Workspace& shared();
    /// What the user's desktop says when nothing opens an address, which may show only after `open`
    /// has returned. It has no words of its own.
    static void setUnopened(std::function<void(const QUrl&)> tell);
};

} // namespace platform
