#pragma once

#include <QString>

/// Where tokens, queue and volume are kept: \p given from the command line, else the service
/// manager's, else the user's. Reads the environment; creates nothing. Empty is never returned.
QString stateDirectory(const QString& given = QString());
