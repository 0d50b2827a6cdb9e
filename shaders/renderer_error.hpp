#pragma once

#include <QString>

#include <exception>

namespace kestrel {

/// What can keep a renderer from being made, beside errors of the GPU platform itself.
class RendererError : public std::exception {
  public:
    enum class Case { noValidDevice };

    explicit RendererError(Case error) : error_(error) {}

    [[nodiscard]] Case error() const { return error_; }
    /// A sentence for the user, in the user's language.
    [[nodiscard]] QString localizedDescription() const;
    [[nodiscard]] const char* what() const noexcept override;

  private:
    Case error_;
};

} // namespace kestrel
