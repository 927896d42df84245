#pragma once
#include <QtGlobal>

#if defined(KELO_BUILDING_HOST)
#define KELO_HTTP_EXPORT Q_DECL_EXPORT
#else
#define KELO_HTTP_EXPORT Q_DECL_IMPORT
#endif
