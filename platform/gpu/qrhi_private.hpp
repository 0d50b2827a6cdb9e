#pragma once

// The only place where private headers of Qt are included. From Qt 6.7 on, the rendering hardware
// interface and a widget for it are public, and this file shrinks accordingly.

#include <QtGui/private/qrhi_p.h>
#include <QtGui/private/qrhigles2_p.h>
#include <QtGui/private/qrhinull_p.h>
#if QT_CONFIG(vulkan)
#include <QtGui/private/qrhivulkan_p.h>
#include <QtGui/private/qvulkandefaultinstance_p.h>
#endif
#ifdef Q_OS_MACOS
#include <QtGui/private/qrhimetal_p.h>
#endif
#include <QtGui/private/qguiapplication_p.h>
#include <QtGui/qpa/qplatformbackingstore.h>
#include <QtGui/qpa/qplatformintegration.h>
#include <QtWidgets/private/qwidget_p.h>
#include <QtWidgets/private/qwidgetrepaintmanager_p.h>
