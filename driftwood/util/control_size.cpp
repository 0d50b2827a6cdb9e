#include "driftwood/util/control_size.hpp"

#include "core/fatal.hpp"

#include <string>

namespace driftwood {
namespace {

template<class Size>
[[noreturn]] void failOn(Size size) {
    core::fatal("Unhandled control size: " + std::to_string(static_cast<int>(size)));
}

} // namespace

ControlSize swiftUIControlSize(CellControlSize size) {
    switch (size) {
    case CellControlSize::regular:
        return ControlSize::regular;
    case CellControlSize::small:
        return ControlSize::small;
    case CellControlSize::mini:
        return ControlSize::mini;
    case CellControlSize::large:
    case CellControlSize::extraLarge:
        return ControlSize::large;
    }
    failOn(size);
}

CellControlSize nsControlSize(ControlSize size) {
    switch (size) {
    case ControlSize::mini:
        return CellControlSize::mini;
    case ControlSize::small:
        return CellControlSize::small;
    case ControlSize::regular:
        return CellControlSize::regular;
    case ControlSize::large:
    case ControlSize::extraLarge:
        return CellControlSize::large;
    }
    failOn(size);
}

} // namespace driftwood
