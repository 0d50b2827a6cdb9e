#pragma once

// What the code of plugin_controls.md takes for granted.

#include "fernhorn/buttons/button_face.hpp"
#include "fernhorn/buttons/callback_buttons.hpp"
#include "fernhorn/buttons/parameter_buttons.hpp"
#include "fernhorn/dials/dial.hpp"
#include "fernhorn/dials/value_label.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "fernhorn/format/default_label_formatter.hpp"
#include "fernhorn/format/label_name_formatter.hpp"
#include "fernhorn/header/header_parts.hpp"
#include "fernhorn/header/plugin_header_view.hpp"

#include <QHBoxLayout>
#include <QPainter>
#include <QToolButton>

#include <cstdio>

using namespace fernhorn;

extern QWidget* panel;
extern const LabelDisplayOptions look;
extern std::shared_ptr<AudioParameter> attack, cutoff, direction, effect, mute, page, stutter, wave;
