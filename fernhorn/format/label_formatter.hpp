#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace fernhorn {

/// Turns a parameter's value into the text of its label and back. Held by `std::shared_ptr`; a
/// label keeps its formatter for its whole life. Texts are UTF-8. Labels call it on the
/// main thread, hosts on any thread: no operation may change it.
class LabelFormatter {
  public:
    virtual ~LabelFormatter() = default;
    [[nodiscard]] virtual std::string format(float value) const = 0;
    /// Nothing when the text is not understood.
    [[nodiscard]] virtual std::optional<float> parse(std::string_view text) const = 0;
    /// Whether the text has the value's unit in it already ("3.07 kHz"): then labels, read-outs and
    /// screen readers add none.
    [[nodiscard]] virtual bool writesUnit() const { return false; }
};

} // namespace fernhorn
