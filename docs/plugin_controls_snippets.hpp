#pragma once

// What the code of plugin_controls.md takes for granted.

#include "fernhorn/controls/button_styles.hpp"
#include "fernhorn/controls/chaos_button.hpp"
#include "fernhorn/controls/chaos_toggle_button.hpp"
#include "fernhorn/controls/chaos_toggle_button_narrow.hpp"
#include "fernhorn/controls/image_button.hpp"
#include "fernhorn/controls/left_right_arrow_button.hpp"
#include "fernhorn/controls/mode_toggle_button.hpp"
#include "fernhorn/controls/parameter_hold_button.hpp"
#include "fernhorn/controls/toggle_button.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "fernhorn/header/plugin_header_view.hpp"
#include "fernhorn/header/update_button_style.hpp"

#include <QHBoxLayout>
#include <QToolButton>

#include <cstdio>

using namespace fernhorn;

extern QWidget* panel;
extern std::shared_ptr<AudioParameter> effect, wave, mute, stutter, direction, page;
