#pragma once
#include <QStringList>

/// The roles of an item row that the program asks for unless a client names others. Any thread.
const QStringList& itemRoles();
