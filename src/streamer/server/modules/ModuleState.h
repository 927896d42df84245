#pragma once
#include <QList>
#include <QString>

/// What there is to say of a module. A plain value.
struct ModuleState
{
    QString name;
    QString file;
    QString prefix;
    QString problem; ///< a sentence; empty while it serves
};
