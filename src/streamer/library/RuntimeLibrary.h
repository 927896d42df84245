#pragma once
#include <QString>

/// A shared library that is loaded while the program runs, and never unloaded. A value type; any
/// thread.
class RuntimeLibrary
{
public:
    /// The file of a name ("libNAME.so") that belongs to the program: beside it in a build tree or
    /// an installation.
    static QString installedFile(const QString& name);

    /// The folder that modules are installed in, which need not be there.
    static QString moduleFolder();

    /// Loads a file. When that fails, `reason` is part of a sentence.
    explicit RuntimeLibrary(const QString& file);

    bool isLoaded() const { return m_handle; }
    const QString& reason() const { return m_reason; }
    /// Null when there is no such symbol.
    template <class Function>
    Function function(const char* symbol) const
    {
        return reinterpret_cast<Function>(find(symbol));
    }

private:
    void* find(const char* symbol) const;

    void* m_handle = nullptr;
    QString m_reason;
};
