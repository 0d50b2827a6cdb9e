#pragma once

#include "fernhorn/model/parameter_settings.hpp"

#include <vector>

namespace larkvox {

/// Two sets of values to compare by ear: what is heard, and another that is kept aside meanwhile.
/// Main thread.
class Comparison {
  public:
    /// The other set begins as the values of now.
    explicit Comparison(fernhorn::ParameterSettings::Parameters parameters);

    /// Exchanges the two sets: an edit of each parameter that differs.
    void swap();

  private:
    fernhorn::ParameterSettings::Parameters parameters_;
    std::vector<float> aside_; ///< in the order of the parameters
};

} // namespace larkvox
