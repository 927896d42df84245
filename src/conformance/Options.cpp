#include "Options.h"

#include <kelo/KeloValue.h>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

/// Maps inside become hashes, as modules get their settings.
QVariant hashed(const QVariant& value)
{
    if (value.type() == QVariant::List) {
        QVariantList list;
        for (const QVariant& item : value.toList())
            list.append(hashed(item));
        return list;
    }
    if (value.type() != QVariant::Map)
        return value;
    QVariantHash hash;
    const QVariantMap map = value.toMap();
    for (auto it = map.begin(); it != map.end(); ++it)
        hash.insert(it.key(), hashed(it.value()));
    return hash;
}

} // namespace

QString Options::help()
{
    return QStringLiteral(
        "Usage: kelo-conformance [OPTIONS] FILE\n\n"
        "Loads a module and prints which of the things that hosts rely on it keeps.\n\n"
        "  --act PATH       may be activated, to see who is told; may be repeated\n"
        "  --settings FILE  JSON: \"settings\" for the module, \"values\" of the tree by path\n"
        "  --prefix PATH    where the module is to stand (/NAME)\n"
        "  --name NAME      the module's name (from its file)\n"
        "  --lists N        visit so many lists at most (100)\n"
        "  --deadline S     of each request, in seconds (10)\n"
        "  --limit S        of the whole run, in seconds (120)\n"
        "  --json           print JSON\n"
        "  --help           print this\n\n"
        "Exit status: 0 all is well, 1 a check failed, 2 wrong usage.\n");
}

bool Options::read(const QStringList& arguments, QString* error)
{
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& word = arguments[i];
        if (word == QLatin1String("--json")) {
            isJson = true;
        } else if (word == QLatin1String("--help")) {
            isHelp = true;
            return true;
        } else if (word.startsWith(QLatin1String("--"))) {
            if (i + 1 == arguments.size()) {
                *error = word + QStringLiteral(": wanted a value");
                return false;
            }
            if (!readOption(word, arguments[++i], error))
                return false;
        } else if (file.isEmpty()) {
            file = word;
        } else {
            *error = QStringLiteral("wanted one file, got %1 as well").arg(word);
            return false;
        }
    }
    if (file.isEmpty())
        *error = QStringLiteral("wanted the file of a module");
    nameByFile();
    return !file.isEmpty();
}

bool Options::readOption(const QString& option, const QString& value, QString* error)
{
    const int number = value.toInt();
    if (option == QLatin1String("--settings"))
        return readFile(value, error);
    if (option == QLatin1String("--act"))
        actions.append(value);
    else if (option == QLatin1String("--prefix"))
        prefix = value;
    else if (option == QLatin1String("--name"))
        name = value;
    else if (option == QLatin1String("--lists") && number > 0)
        mostLists = number;
    else if (option == QLatin1String("--deadline") && number > 0)
        deadline = std::chrono::seconds(number);
    else if (option == QLatin1String("--limit") && number > 0)
        limit = std::chrono::seconds(number);
    else
        *error = QStringLiteral("%1 %2: there is no such option or value").arg(option, value);
    return error->isEmpty();
}

bool Options::readFile(const QString& file, QString* error)
{
    QFile from(file);
    if (!from.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("%1: %2").arg(file, from.errorString());
        return false;
    }
    QJsonParseError problem;
    const QJsonDocument document = QJsonDocument::fromJson(from.readAll(), &problem);
    if (!document.isObject()) {
        *error = QStringLiteral("%1: no JSON object: %2").arg(file, problem.errorString());
        return false;
    }
    const QVariantHash all = hashed(document.toVariant()).toHash();
    const bool isTaken = take(all, error);
    if (!isTaken)
        *error = file + QStringLiteral(": ") + *error;
    return isTaken;
}

bool Options::take(const QVariantHash& all, QString* error)
{
    for (auto it = all.begin(); it != all.end(); ++it) {
        if (it.key() != QLatin1String("settings") && it.key() != QLatin1String("values"))
            *error = QStringLiteral("\"%1\": wanted \"settings\" or \"values\"").arg(it.key());
        else if (it->type() != QVariant::Hash)
            *error = QStringLiteral("\"%1\": wanted an object").arg(it.key());
    }
    settings = all.value(QStringLiteral("settings")).toHash();
    values = all.value(QStringLiteral("values")).toHash();
    for (auto it = values.begin(); error->isEmpty() && it != values.end(); ++it) {
        const KeloValue value = KeloValue::fromVariant(*it);
        if (!it.key().startsWith(QLatin1Char('/')))
            *error = QStringLiteral("\"values\": \"%1\" is no path").arg(it.key());
        else if (value.type().isEmpty() || !value.contains(value.type()))
            *error =
                QStringLiteral("\"values\", %1: wanted a text, a whole number, true or false, a "
                               "list of texts, or an object with its \"type\" and, under that "
                               "name, the value")
                    .arg(it.key());
    }
    return error->isEmpty();
}

void Options::nameByFile()
{
    if (name.isEmpty()) {
        name = QFileInfo(file).baseName();
        for (const char* start : {"libkelo_cb_", "lib"}) {
            if (name.startsWith(QLatin1String(start))) {
                name.remove(0, int(qstrlen(start)));
                break;
            }
        }
    }
    if (prefix.isEmpty())
        prefix = QLatin1Char('/') + name;
}
