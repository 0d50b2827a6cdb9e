#pragma once

#include <QAbstractButton>

namespace platform {

class AssetCatalog;

/// A small flat button that shows a template image and lights up under the pointer: the controls in
/// a window's corner.
class GlyphButton final : public QAbstractButton {
    Q_OBJECT

  public:
    /// `name` is what a screen reader says and the tool tip shows; `assets` outlives the button.
    GlyphButton(const QString& glyph, const QString& name, const AssetCatalog& assets,
                QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override { return {28, 28}; }

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QString glyph_;
    const AssetCatalog& assets_;
    bool showsFocus_ = false;
};

} // namespace platform
