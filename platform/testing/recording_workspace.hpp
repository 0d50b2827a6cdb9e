#pragma once

#include "platform/ui/workspace.hpp"

#include <QUrl>

namespace platform::testing {

/// Opens nothing and notes what it should have opened.
class RecordingWorkspace final : public Workspace {
  public:
    bool open(const QUrl& url) override {
        opened.append(url);
        return succeeds;
    }

    QList<QUrl> opened;
    bool succeeds = true;
};

} // namespace platform::testing
