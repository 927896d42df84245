#pragma once
#include <QCoreApplication>

/// The application of serve. What a module throws while one of its objects handles an event goes no
/// further: the libraries between that object and the module's event loop cannot stand it.
class ModuleApplication : public QCoreApplication
{
public:
    using QCoreApplication::QCoreApplication;
    bool notify(QObject* receiver, QEvent* event) override;
};
