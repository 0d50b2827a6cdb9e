#pragma once

#include "driftwood/bridges/style_follower.hpp"
#include "driftwood/bridges/styled_class.hpp"
#include "driftwood/style/pop_up_cell_style.hpp"
#include "driftwood/style/styled_control.hpp"
#include "platform/controls/cell.hpp"
#include "platform/controls/control.hpp"
#include "platform/controls/line_text.hpp"

#include <QComboBox>

// All of this is for the main thread.
namespace driftwood {

/// Draws a combo box: the field, the arrow at its end, and the text of one that cannot be edited.
class StyledComboBoxCell : public platform::Cell,
                           public StyledControl,
                           public StyledClass<StyledComboBoxCell, ComboBoxStyle> {
  public:
    StyledComboBoxCell() { setBordered(true); }

    [[nodiscard]] StyledControlState controlState() const override {
        return styledControlState(cellState());
    }
    [[nodiscard]] ComboBoxStyle& controlStyle() const override { return style(); }
    [[nodiscard]] BackgroundStyle interiorBackgroundStyle() const {
        return style().interiorBackgroundStyle();
    }

    [[nodiscard]] bool isPopupOpen() const { return isPopupOpen_; }
    void setPopupOpen(bool isOpen) { isPopupOpen_ = isOpen; }
    /// The text that the cell draws; empty where an editor lies over it.
    void setText(const QString& text) { text_ = text; }

    /// Where the text goes, and the editor.
    [[nodiscard]] core::Rect titleRect(const core::Rect& bounds, bool isRightToLeft) const;
    [[nodiscard]] core::Size cellSize() const override;
    /// The field's image; its size is what the control's follows.
    [[nodiscard]] static const platform::ImageAsset* fieldImage();
    /// The image at the end: another one while the list is open.
    [[nodiscard]] const platform::ImageAsset* arrowImage() const;

  protected:
    void drawBezel(const core::Rect& frame, const platform::CellCanvas& canvas) const override;
    void drawInterior(const core::Rect& frame, const platform::CellCanvas& canvas) const override;

  private:
    bool isPopupOpen_ = false;
    QString text_;
    mutable platform::LineText line_;
};

/// A field with a list of suggestions below it, the toolkit's own combo box in the kit's look: its
/// editor, its list, keys, completion, type-ahead and input methods are the toolkit's. It can be
/// edited unless it is told otherwise, and what is typed is not added to the list. The action is
/// sent for an item that the user chooses and for a text that he has finished.
class StyledComboBox : public QComboBox, public platform::Control {
    Q_OBJECT

  public:
    explicit StyledComboBox(QWidget* parent = nullptr);
    ~StyledComboBox() override;

    [[nodiscard]] StyledComboBoxCell& styledCell() { return cell_; }
    [[nodiscard]] bool isPopupOpen() const { return cell_.isPopupOpen(); }
    /// Whether it can be typed into.
    void setFieldEditable(bool isEditable);

    /// In points; takes the place of the natural width.
    [[nodiscard]] std::optional<double> fixedWidth() const { return fixedWidth_; }
    void setFixedWidth(std::optional<double> width);
    [[nodiscard]] core::EdgeInsets alignmentRectInsets() const;
    [[nodiscard]] core::Size intrinsicContentSize() const;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    /// The user has chosen an item: sends the action.
    void selectionDidChange();

    void showPopup() override;
    bool eventFilter(QObject* object, QEvent* event) override;

    /// True shows the ring without the keyboard: for pictures of a control.
    void setFocusRingPictured(bool isPictured);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void applyStyle();
    void placeEditor();
    void finishEditing();
    void setPopupOpen(bool isOpen);

    StyledComboBoxCell cell_;
    StyleFollower follower_;
    std::optional<double> fixedWidth_;
    bool isEdited_ = false; // typed, and not told yet
    bool isRingPictured_ = false;
};

} // namespace driftwood
