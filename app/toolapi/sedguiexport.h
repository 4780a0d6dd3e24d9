#pragma once

#include <QtGlobal>

// Symbols of libsedgui.so. The shell and the tool plug-in both link it, so the
// tool classes have one meta-object and one type_info across the plug-in
// boundary, and qobject_cast / dynamic_cast work in the shell.
#if defined(SEDGUI_LIBRARY)
#define SEDGUI_EXPORT Q_DECL_EXPORT
#else
#define SEDGUI_EXPORT Q_DECL_IMPORT
#endif
