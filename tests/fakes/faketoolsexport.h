#pragma once

#include <QtGlobal>

#if defined(FAKETOOLS_LIBRARY)
#define FAKETOOLS_EXPORT Q_DECL_EXPORT
#else
#define FAKETOOLS_EXPORT Q_DECL_IMPORT
#endif
