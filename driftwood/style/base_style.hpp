#pragma once

#include "core/observable.hpp"
#include "driftwood/style/asset_source.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace driftwood {

enum class AppearanceName { aqua, darkAqua };

/// What a control stands on, and so how it should contrast. The values count.
enum class BackgroundStyle { normal = 0, emphasized = 1, raised = 2, lowered = 3 };

/// How far a change of a style goes: whether a control only looks different, or may want another
/// size or place for its parts, too.
enum class StyleChange { look, layout };

/// What every style can be asked.
class Style {
  public:
    virtual ~Style() = default;
    [[nodiscard]] virtual std::optional<AppearanceName> appearanceName() const = 0;
    [[nodiscard]] virtual BackgroundStyle backgroundStyle() const = 0;
    [[nodiscard]] virtual BackgroundStyle interiorBackgroundStyle() const = 0;
    [[nodiscard]] virtual bool opaque() const = 0;
};

class FollowerList;

/// The root of the style classes: objects that any number of controls share, and follow when they
/// are changed. A setter that changes something tells the observers once; setting an equal value
/// tells nobody. Main thread.
class BaseStyle : public Style {
  public:
    BaseStyle();
    BaseStyle(const BaseStyle&) = delete;
    BaseStyle& operator=(const BaseStyle&) = delete;

    [[nodiscard]] std::optional<AppearanceName> appearanceName() const override {
        return appearanceName_;
    }
    void setAppearanceName(std::optional<AppearanceName> name) { setLook(appearanceName_, name); }

    [[nodiscard]] BackgroundStyle backgroundStyle() const override { return backgroundStyle_; }
    void setBackgroundStyle(BackgroundStyle style) { setLook(backgroundStyle_, style); }

    [[nodiscard]] BackgroundStyle interiorBackgroundStyle() const override {
        return interiorBackgroundStyle_;
    }
    void setInteriorBackgroundStyle(BackgroundStyle style) {
        setLook(interiorBackgroundStyle_, style);
    }

    [[nodiscard]] bool opaque() const override { return opaque_; }
    void setOpaque(bool opaque) { setLook(opaque_, opaque); }

    [[nodiscard]] const Color& backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(Color color) { setLook(backgroundColor_, std::move(color)); }

    /// The callback is told of every change, after it is made. It must not throw.
    [[nodiscard]] core::Subscription observe(std::function<void(StyleChange)> callback) {
        return observers_.add(std::move(callback));
    }

  protected:
    /// A hook for subclasses, before the observers are told. Does nothing here.
    virtual void styleDidChange(StyleChange) {}

    template<class Value>
    void setLook(Value& field, Value value) {
        assign(field, std::move(value), StyleChange::look);
    }
    template<class Value>
    void setLayout(Value& field, Value value) {
        assign(field, std::move(value), StyleChange::layout);
    }

  private:
    friend class FollowerList;
    friend class StyleEdit;

    template<class Value>
    void assign(Value& field, Value value, StyleChange change) {
        if (!(field == value)) {
            field = std::move(value);
            note(change);
        }
    }
    void note(StyleChange change);
    void endEdit();

    std::optional<AppearanceName> appearanceName_ = AppearanceName::darkAqua;
    BackgroundStyle backgroundStyle_ = BackgroundStyle::emphasized;
    BackgroundStyle interiorBackgroundStyle_ = BackgroundStyle::emphasized;
    bool opaque_ = false;
    Color backgroundColor_;

    core::ObserverList<StyleChange> observers_;
    int edits_ = 0;
    std::optional<StyleChange> pending_;
    std::weak_ptr<FollowerList> followers_; // the one observer of all the controls that follow it
};

/// Holds back what a style has to tell while several of its fields are set; when the last edit of
/// the style ends, the observers are told once, or not at all when nothing has changed. The style
/// outlives the edit.
class [[nodiscard]] StyleEdit {
  public:
    explicit StyleEdit(BaseStyle& style) : style_(style) { ++style_.edits_; }
    ~StyleEdit() { style_.endEdit(); }
    StyleEdit(const StyleEdit&) = delete;
    StyleEdit& operator=(const StyleEdit&) = delete;

  private:
    BaseStyle& style_;
};

/// The one style object that all instances of a class share; made when it is first asked for, and
/// kept until the program ends. `Owner` is the class, since two classes may have the same kind of
/// style and still not share it.
template<class Owner, class ViewStyle>
ViewStyle& sharedStyle() {
    static ViewStyle style;
    return style;
}

} // namespace driftwood
