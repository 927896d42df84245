#pragma once
#include <chrono>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantHash>

/// What the program is told. A plain value.
struct Options
{
    QString file;
    QString name;   ///< the module's; from its file unless given
    QString prefix; ///< "/" and the name unless given
    QVariantHash settings;
    QVariantHash values; ///< by path: what stands elsewhere in the tree
    QStringList actions; ///< paths that may be activated
    int mostLists = 100;
    std::chrono::seconds deadline{10}; ///< of each request
    std::chrono::seconds limit{120};   ///< of the whole run
    bool isJson = false;
    bool isHelp = false;

    static QString help();
    /// False with a sentence in `error`.
    [[nodiscard]] bool read(const QStringList& arguments, QString* error);

private:
    bool readOption(const QString& option, const QString& value, QString* error);
    bool readFile(const QString& file, QString* error);
    bool take(const QVariantHash& all, QString* error);
    void nameByFile();
};
