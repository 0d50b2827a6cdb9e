#pragma once

#include "platform/controls/abstract_button.hpp"

namespace platform {

class AssetCatalog;

/// A small flat button that shows a template image and lights up under the pointer: the controls in
/// a window's corner. Main thread.
class GlyphButton final : public AbstractButton {
    Q_OBJECT

  public:
    /// `name` is what a screen reader says and the tool tip shows; `assets` outlives the button.
    GlyphButton(const QString& glyph, const QString& name, const AssetCatalog& assets,
                QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override { return {28, 28}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString glyph_;
    const AssetCatalog& assets_;
};

} // namespace platform
