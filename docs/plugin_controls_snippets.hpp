#pragma once

// What the code of plugin_controls.md takes for granted.

#include "fernhorn/controls/button_styles.hpp"
#include "fernhorn/controls/chaos_button.hpp"
#include "fernhorn/controls/chaos_dial.hpp"
#include "fernhorn/controls/chaos_toggle_button.hpp"
#include "fernhorn/controls/chaos_toggle_button_narrow.hpp"
#include "fernhorn/controls/dial_label.hpp"
#include "fernhorn/controls/image_button.hpp"
#include "fernhorn/controls/left_right_arrow_button.hpp"
#include "fernhorn/controls/medium_dial.hpp"
#include "fernhorn/controls/mode_toggle_button.hpp"
#include "fernhorn/controls/parameter_hold_button.hpp"
#include "fernhorn/controls/tiny_dial.hpp"
#include "fernhorn/controls/toggle_button.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "fernhorn/format/default_label_formatter.hpp"
#include "fernhorn/format/label_name_formatter.hpp"
#include "fernhorn/header/plugin_header_view.hpp"
#include "fernhorn/header/update_button_style.hpp"

#include <QHBoxLayout>
#include <QPainter>
#include <QToolButton>

#include <cstdio>

using namespace fernhorn;

extern QWidget* panel;
extern const LabelDisplayOptions look;
extern std::shared_ptr<AudioParameter> attack, cutoff, direction, effect, mute, page, stutter, wave;
