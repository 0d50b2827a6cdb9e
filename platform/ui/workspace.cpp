#include "platform/ui/workspace.hpp"

#include <QDesktopServices>

namespace platform {
namespace {

class DesktopWorkspace final : public Workspace {
  public:
    bool open(const QUrl& url) override { return QDesktopServices::openUrl(url); }
};

} // namespace

Workspace& Workspace::shared() {
    static DesktopWorkspace workspace;
    return workspace;
}

} // namespace platform
