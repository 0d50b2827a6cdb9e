#pragma once

#include "gallery/page.hpp"
#include "platform/gpu/composited_widget.hpp"

#include <QPointer>
#include <QWidget>

class QListWidget;
class QScrollArea;

namespace gallery {

/// The list of pages at the left, the chosen one beside it.
class GalleryWindow final : public QWidget {
  public:
    GalleryWindow();

    void show(const Page& page);
    /// The size at which the whole page is seen.
    [[nodiscard]] QSize wholePageSize() const;

  protected:
    /// What no control has taken scrolls the page.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void open(const Page& page);
    void composeByGpu(bool byGpu);

    QPointer<platform::GpuHost> host_; // on pages with a visual only
    QListWidget* list_;
    QScrollArea* area_;
};

} // namespace gallery
