#pragma once
#include <QtGlobal>

/// Marks what the host libraries export. The libraries are shared ones: the program and its modules
/// must see one root, one set of meta-types and one set of loggers.
#if defined(KELO_BUILDING_HOST)
#define KELO_EXPORT Q_DECL_EXPORT
#else
#define KELO_EXPORT Q_DECL_IMPORT
#endif
