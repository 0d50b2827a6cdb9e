#pragma once

#include "gallery/page.hpp"

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

  private:
    QListWidget* list_;
    QScrollArea* area_;
};

} // namespace gallery
