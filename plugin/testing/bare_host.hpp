#pragma once

#include "plugin/lv2/ports.hpp"
#include "plugin/lv2/window_state.hpp"

#include <lv2/core/lv2.h>
#include <lv2/ui/ui.h>

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

struct _XDisplay;

namespace larkvox::testing {

/// A library that is loaded and, at least as far as this program goes, let go again.
class Library {
  public:
    explicit Library(const std::string& path);
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library();

    template<class Function>
    [[nodiscard]] Function symbol(const char* name) const {
        return reinterpret_cast<Function>(find(name));
    }

  private:
    [[nodiscard]] void* find(const char* name) const;
    void* handle_;
};

/// What a window has done to its host.
struct Event {
    enum class Kind { touch, write, release } kind;
    std::uint32_t port;
    float value;
};

using XWindow = unsigned long; // as X11's own header would have it, which names too much else

/// A host without any toolkit: it makes plug-ins and puts their windows into X11 windows.
class BareHost {
  public:
    struct Slot {
        LV2_Handle plugin = nullptr;
        LV2UI_Handle editor = nullptr;
        XWindow window = 0;
        XWindow child = 0;
        int width = 0, height = 0; ///< as the editor has asked for
        bool echoes = false;       ///< sends every value back at once, an old one
        std::vector<Event> events;
        const LV2UI_Descriptor* ui = nullptr;
    };

    explicit BareHost(std::string bundle);
    BareHost(const BareHost&) = delete;
    BareHost& operator=(const BareHost&) = delete;
    ~BareHost();

    /// A plug-in; its window comes with `open`.
    std::unique_ptr<Slot> makePlugin();
    void endPlugin(Slot& slot);
    /// False: the editor has refused. `bundle` is where it is told to stand.
    bool open(Slot& slot, const std::string& bundle);
    bool open(Slot& slot) { return open(slot, bundle_); }
    enum class Order { editorFirst, windowFirst };
    void close(Slot& slot, Order order = Order::editorFirst);

    void set(Slot& slot, std::uint32_t port, float value);
    /// Goes on, with everybody idling, for so long or until something is the case.
    bool run(int milliseconds, const std::function<bool()>& until = {});

    /// A sum over the pixels of a part of the window.
    [[nodiscard]] std::uint64_t look(const Slot& slot, int x, int y, int width, int height);
    /// Gives the keys to the editor's window.
    void focus(const Slot& slot);

  private:
    std::string bundle_;
    _XDisplay* display_;
    Library sound_;
    Library window_;
    std::vector<Slot*> slots_;
};

} // namespace larkvox::testing
