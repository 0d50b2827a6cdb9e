#pragma once

// The only place where private headers of Qt are included. They are those of 6.4 and 6.5; from 6.6
// on the rendering hardware interface has headers of its own, and from 6.7 on a public widget,
// which `CompositedWidget` takes in place of the last two.

#include <QtGlobal>

#if QT_VERSION < QT_VERSION_CHECK(6, 4, 0)
#error "Larkvox needs Qt 6.4 or later"
#elif QT_VERSION < QT_VERSION_CHECK(6, 6, 0)
#include <QtGui/private/qrhi_p.h>
#include <QtGui/private/qrhigles2_p.h>
#include <QtGui/private/qrhinull_p.h>
#if QT_CONFIG(vulkan)
#include <QtGui/private/qrhivulkan_p.h>
#endif
#ifdef Q_OS_MACOS
#include <QtGui/private/qrhimetal_p.h>
#endif
#else
#include <rhi/qrhi.h>
#include <rhi/qrhi_platform.h>
#endif

#if QT_CONFIG(vulkan)
#include <QtGui/private/qvulkandefaultinstance_p.h>
#endif
#include <QtGui/private/qguiapplication_p.h>
#include <QtGui/qpa/qplatformintegration.h>
#if QT_VERSION < QT_VERSION_CHECK(6, 7, 0)
#include <QtGui/qpa/qplatformbackingstore.h>
#include <QtWidgets/private/qwidget_p.h>
#include <QtWidgets/private/qwidgetrepaintmanager_p.h>
#endif
