// The library that hosts load for the window.

#include "plugin/editor/editor.hpp"
#include "plugin/lv2/ports.hpp"
#include "plugin/lv2/window_state.hpp"

#include <lv2/data-access/data-access.h>
#include <lv2/instance-access/instance-access.h>
#include <lv2/ui/ui.h>

#include <cstring>

namespace larkvox {

namespace {

/// What the host offers to this window.
struct Offers {
    WId parent = 0;
    const LV2UI_Touch* touch = nullptr;
    const LV2UI_Resize* resize = nullptr;
    void* plugin = nullptr;
    const WindowState* windowState = nullptr;
};

Offers readOffers(const LV2_Feature* const* features) {
    Offers offers;
    for (; features != nullptr && *features != nullptr; ++features) {
        const auto is = [features](const char* uri) {
            return std::strcmp((*features)->URI, uri) == 0;
        };
        void* const data = (*features)->data;
        if (is(LV2_UI__parent)) {
            offers.parent = reinterpret_cast<WId>(data);
        } else if (is(LV2_UI__touch)) {
            offers.touch = static_cast<const LV2UI_Touch*>(data);
        } else if (is(LV2_UI__resize)) {
            offers.resize = static_cast<const LV2UI_Resize*>(data);
        } else if (is(LV2_INSTANCE_ACCESS_URI)) {
            offers.plugin = data;
        } else if (is(LV2_DATA_ACCESS_URI)) {
            offers.windowState = static_cast<const WindowState*>(
                static_cast<const LV2_Extension_Data_Feature*>(data)->data_access(
                    WindowState::uri));
        }
    }
    if (offers.plugin == nullptr || offers.windowState == nullptr) {
        offers.plugin = nullptr;
        offers.windowState = nullptr;
    }
    return offers;
}

Editor& editorOf(LV2UI_Handle handle) {
    return *static_cast<Editor*>(handle);
}

LV2UI_Handle instantiate(const LV2UI_Descriptor* /*descriptor*/, const char* plugin,
                         const char* bundle, LV2UI_Write_Function write,
                         LV2UI_Controller controller, LV2UI_Widget* widget,
                         const LV2_Feature* const* features) {
    const Offers offers = readOffers(features);
    if (std::strcmp(plugin, pluginUri) != 0) {
        return nullptr;
    }
    Editor::Host host;
    host.write = [write, controller, offers](std::size_t address, float value) {
        if (!vocoderParameters().at(address).isOfWindow()) {
            write(controller, portOf(address), sizeof value, 0, &value);
        } else if (offers.windowState != nullptr) {
            offers.windowState->set(offers.plugin, static_cast<std::uint32_t>(address), value);
        }
    };
    if (offers.touch != nullptr) {
        host.touch = [touch = offers.touch](std::size_t address, bool isTouched) {
            if (!vocoderParameters().at(address).isOfWindow()) {
                touch->touch(touch->handle, portOf(address), isTouched);
            }
        };
    }
    auto editor = Editor::open(bundle, offers.parent, std::move(host));
    if (editor == nullptr) {
        return nullptr;
    }
    if (offers.windowState != nullptr) {
        const auto page = static_cast<std::uint32_t>(indexOf(VocoderParameter::page));
        editor->hostHasSet(page, offers.windowState->get(offers.plugin, page));
    }
    *widget = reinterpret_cast<LV2UI_Widget>(editor->owner().windowId());
    if (offers.resize != nullptr) {
        const QSize size = editor->owner().sizeInPixels();
        offers.resize->ui_resize(offers.resize->handle, size.width(), size.height());
    }
    return editor.release();
}

void portEvent(LV2UI_Handle handle, std::uint32_t port, std::uint32_t size, std::uint32_t format,
               const void* buffer) {
    if (format == 0 && size == sizeof(float) && isControlPort(port)) {
        float value = 0;
        std::memcpy(&value, buffer, sizeof value);
        editorOf(handle).hostHasSet(addressOfPort(port), value);
    }
}

const LV2UI_Idle_Interface idle{[](LV2UI_Handle handle) {
    editorOf(handle).owner().idle();
    return 0;
}};

const LV2UI_Descriptor descriptor{
    windowUri, &instantiate, [](LV2UI_Handle handle) { delete &editorOf(handle); }, &portEvent,
    [](const char* uri) -> const void* {
        return std::strcmp(uri, LV2_UI__idleInterface) == 0 ? &idle : nullptr;
    }};

} // namespace

} // namespace larkvox

extern "C" LV2_SYMBOL_EXPORT const LV2UI_Descriptor* lv2ui_descriptor(std::uint32_t index) {
    return index == 0 ? &larkvox::descriptor : nullptr;
}
