#pragma once

/// The version of this product: the one place where it is written, the build reads it from here.
/// Before 1.0 a new minor version may change the interface between a module and its host.
#define KELO_VERSION_MAJOR 0
#define KELO_VERSION_MINOR 1
#define KELO_VERSION_PATCH 0

#define KELO_VERSION_TEXT_OF(major, minor) #major "." #minor
#define KELO_VERSION_TEXT(major, minor) KELO_VERSION_TEXT_OF(major, minor)
/// The version of the interface, such as "0.1". A host takes the modules that were built for its
/// own.
#define KELO_INTERFACE_VERSION KELO_VERSION_TEXT(KELO_VERSION_MAJOR, KELO_VERSION_MINOR)
