#include "plugin/testing/bare_host.hpp"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <dlfcn.h>
#include <lv2/data-access/data-access.h>
#include <lv2/instance-access/instance-access.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <utility>

namespace larkvox::testing {

Library::Library(const std::string& path) : handle_(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
    if (handle_ == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        std::abort();
    }
}

Library::~Library() {
    dlclose(handle_);
}

void* Library::find(const char* name) const {
    return dlsym(handle_, name);
}

namespace {

/// A virtual screen that its last client leaves starts anew, and is not there meanwhile: one stays.
Display* openDisplay() {
    static Display* const staying = XOpenDisplay(nullptr);
    Display* const display = staying != nullptr ? XOpenDisplay(nullptr) : nullptr;
    if (display == nullptr) {
        std::fputs("no X11 display\n", stderr);
        std::abort();
    }
    return display;
}

} // namespace

BareHost::BareHost(std::string bundle)
    : bundle_(std::move(bundle)),
      display_(openDisplay()),
      sound_(bundle_ + "/larkvox.so"),
      window_(bundle_ + "/larkvox_ui.so") {
    // A host that destroys its window first makes the editor's last requests fail.
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
}

BareHost::~BareHost() {
    XCloseDisplay(display_);
}

std::unique_ptr<BareHost::Slot> BareHost::makePlugin() {
    auto slot = std::make_unique<Slot>();
    const auto* const sound =
        sound_.symbol<const LV2_Descriptor* (*)(std::uint32_t)>("lv2_descriptor")(0);
    const std::array<const LV2_Feature*, 1> none{nullptr};
    slot->plugin = sound->instantiate(sound, 48000, bundle_.c_str(), none.data());
    slot->ui = window_.symbol<const LV2UI_Descriptor* (*)(std::uint32_t)>("lv2ui_descriptor")(0);
    return slot;
}

void BareHost::endPlugin(Slot& slot) {
    const auto* const sound =
        sound_.symbol<const LV2_Descriptor* (*)(std::uint32_t)>("lv2_descriptor")(0);
    sound->cleanup(slot.plugin);
}

bool BareHost::open(Slot& slot, const std::string& bundle) {
    slot.window =
        XCreateSimpleWindow(display_, DefaultRootWindow(display_),
                            static_cast<int>(slots_.size()) * 880, 0, 868, 564, 0, 0, 0xff00ff);
    XMapWindow(display_, slot.window);
    XSync(display_, False);
    LV2UI_Touch touch{&slot, [](LV2UI_Feature_Handle handle, std::uint32_t port, bool isTouched) {
                          static_cast<Slot*>(handle)->events.push_back(
                              {isTouched ? Event::Kind::touch : Event::Kind::release, port, 0});
                      }};
    // The feature has to stay for as long as the editor does.
    static std::map<Slot*, LV2UI_Touch> touches;
    touches[&slot] = touch;
    LV2UI_Resize resize{&slot, [](LV2UI_Feature_Handle handle, int width, int height) {
                            static_cast<Slot*>(handle)->width = width;
                            static_cast<Slot*>(handle)->height = height;
                            return 0;
                        }};
    static LV2_Extension_Data_Feature access{};
    static auto data = sound_.symbol<const LV2_Descriptor* (*)(std::uint32_t)>("lv2_descriptor")(0)
                           ->extension_data;
    data = sound_.symbol<const LV2_Descriptor* (*)(std::uint32_t)>("lv2_descriptor")(0)
               ->extension_data;
    access.data_access = data;
    const std::array<LV2_Feature, 5> features{
        LV2_Feature{LV2_UI__parent, reinterpret_cast<void*>(slot.window)},
        LV2_Feature{LV2_UI__touch, &touches[&slot]}, LV2_Feature{LV2_UI__resize, &resize},
        LV2_Feature{LV2_INSTANCE_ACCESS_URI, slot.plugin},
        LV2_Feature{LV2_DATA_ACCESS_URI, &access}};
    std::array<const LV2_Feature*, 6> list{};
    std::transform(features.begin(), features.end(), list.begin(),
                   [](const LV2_Feature& feature) { return &feature; });
    LV2UI_Widget widget = nullptr;
    slot.editor = slot.ui->instantiate(
        slot.ui, pluginUri, (bundle + "/").c_str(),
        [](LV2UI_Controller controller, std::uint32_t port, std::uint32_t, std::uint32_t,
           const void* buffer) {
            auto& self = *static_cast<Slot*>(controller);
            self.events.push_back({Event::Kind::write, port, *static_cast<const float*>(buffer)});
            if (self.echoes) {
                const float old = 0;
                self.ui->port_event(self.editor, port, sizeof old, 0, &old);
            }
        },
        &slot, &widget, list.data());
    slot.child = reinterpret_cast<XWindow>(widget);
    if (slot.editor == nullptr) {
        XDestroyWindow(display_, slot.window);
        return false;
    }
    slots_.push_back(&slot);
    return true;
}

void BareHost::close(Slot& slot, Order order) {
    std::erase(slots_, &slot);
    if (order == Order::windowFirst) {
        XDestroyWindow(display_, slot.window);
        XSync(display_, False);
    }
    slot.ui->cleanup(slot.editor);
    slot.editor = nullptr;
    if (order == Order::editorFirst) {
        XDestroyWindow(display_, slot.window);
    }
    XSync(display_, False);
}

void BareHost::set(Slot& slot, std::uint32_t port, float value) {
    slot.ui->port_event(slot.editor, port, sizeof value, 0, &value);
}

bool BareHost::run(int milliseconds, const std::function<bool()>& until) {
    using namespace std::chrono;
    const auto end = steady_clock::now() + std::chrono::milliseconds(milliseconds);
    do {
        while (XPending(display_) > 0) {
            XEvent event;
            XNextEvent(display_, &event);
        }
        for (Slot* const slot : slots_) {
            static_cast<const LV2UI_Idle_Interface*>(
                slot->ui->extension_data(LV2_UI__idleInterface))
                ->idle(slot->editor);
        }
        if (until && until()) {
            return true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(8));
    } while (steady_clock::now() < end);
    return !until;
}

std::uint64_t BareHost::look(const Slot& slot, int x, int y, int width, int height) {
    XImage* const image = XGetImage(display_, slot.window, x, y, static_cast<unsigned>(width),
                                    static_cast<unsigned>(height), AllPlanes, ZPixmap);
    std::uint64_t sum = 0;
    for (int row = 0; image != nullptr && row < height; ++row) {
        for (int column = 0; column < width; ++column) {
            const auto pixel =
                static_cast<std::uint64_t>(XGetPixel(image, column, row)) & 0xffffffU;
            sum = sum * 31 + pixel;
        }
    }
    if (image != nullptr) {
        XDestroyImage(image);
    }
    return sum;
}

void BareHost::focus(const Slot& slot) {
    XSetInputFocus(display_, slot.child, RevertToParent, CurrentTime);
    XSync(display_, False);
}

} // namespace larkvox::testing
