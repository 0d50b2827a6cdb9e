#pragma once

#include "core/binding.hpp"
#include "driftwood/text/styled_search_field.hpp"
#include "platform/controls/environment.hpp"

#include <functional>

// All of this is for the main thread.
namespace driftwood {

/// The side at which the lines of declarative views stand.
enum class TextAlignment { leading, center, trailing };

/// What declarative views leave out of a text that is too long.
enum class TruncationMode { head, tail, middle };

/// How texts are shown in a view and everything in it: put it into the view's environment
/// (`platform::setEnvironment`).
struct TextEnvironment {
    bool allowsTightening = false;
    std::optional<int> lineLimit;
    TextAlignment multilineTextAlignment = TextAlignment::leading;
    TruncationMode truncationMode = TruncationMode::tail;
};

/// What a line leaves out by that mode. One that is none of them stops the program.
[[nodiscard]] platform::LineEliding lineBreakMode(TruncationMode mode);

/// A declarative view with a styled text field that edits a text which lives elsewhere, and follows
/// the text environment.
class KestrelStyledTextField final : public QWidget, private platform::TextFieldDelegate {
  public:
    /// Without a style the field has that of its class. `onEditingChanged` is told of each change
    /// by the user (true) and of the end of editing (false); it must not destroy the view.
    explicit KestrelStyledTextField(std::optional<QString> placeholder, core::Binding<QString> text,
                                    std::shared_ptr<TextFieldCellStyle> style = nullptr,
                                    std::function<void(bool)> onEditingChanged = {},
                                    QWidget* parent = nullptr);
    ~KestrelStyledTextField() override;

    [[nodiscard]] StyledTextField& textField() { return *field_; }

  private:
    void update();
    void controlTextDidChange(platform::TextField& field) override;
    void controlTextDidEndEditing(platform::TextField& field) override;

    std::optional<QString> placeholder_;
    core::Binding<QString> text_;
    std::function<void(bool)> onEditingChanged_;
    StyledTextField* field_; // a child
    core::Subscription followed_;
    platform::Environment<TextEnvironment> environment_;
};

/// A declarative view with a styled search field.
class StyledSearchFieldWrapper final : public QWidget {
  public:
    explicit StyledSearchFieldWrapper(core::Binding<QString> searchText, QString placeholderString,
                                      QWidget* parent = nullptr);
    ~StyledSearchFieldWrapper() override;

    [[nodiscard]] StyledSearchField& searchField() { return *field_; }

    /// Between the field and the view.
    struct Coordinator final : platform::ActionTarget {
        explicit Coordinator(StyledSearchFieldWrapper& wrapper) : parent(wrapper) {}
        void filterContents(platform::Control& sender);
        StyledSearchFieldWrapper& parent;
    };

  private:
    core::Binding<QString> searchText_;
    StyledSearchField* field_; // a child
    Coordinator coordinator_{*this};
    core::Subscription followed_;
};

} // namespace driftwood
