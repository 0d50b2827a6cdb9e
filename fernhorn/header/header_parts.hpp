#pragma once

#include "fernhorn/controls/index_button.hpp"

namespace fernhorn {

/// One page of a plug-in in its header: its name, bright while it is shown. Main thread.
class HeaderTab final : public IndexButton {
    Q_OBJECT

  public:
    /// How far it goes beyond its name at either side, in points: for the pointer and the focus
    /// ring.
    static constexpr int reach = 7;

    /// The parameter has to have value strings.
    HeaderTab(const std::shared_ptr<AudioParameter>& param, int valueIndex, const QFont& font,
              QWidget* parent);

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::PageTab; }

  protected:
    void paintContent(QPainter& painter, const ButtonState& state) override;

  private:
    platform::TitleText layout_;
};

/// The tabs of a header in a row: one for each value string of the parameter, 24 points between
/// their names. It goes as far beyond the names as tabs do. Main thread.
class HeaderTabs final : public QWidget {
    Q_OBJECT

  public:
    HeaderTabs(const std::shared_ptr<AudioParameter>& param, const QFont& font,
               QWidget* parent = nullptr);
};

} // namespace fernhorn
