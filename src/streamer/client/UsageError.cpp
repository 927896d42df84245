#include "client/UsageError.h"

#include "client/CommandShape.h"

#include <algorithm>
#include <CLI/CLI.hpp>
#include <numeric>
#include <QRegularExpression>
#include <QStringList>

namespace cli {

namespace {

/// How many letters differ (Levenshtein).
int distance(const QString& a, const QString& b)
{
    QVector<int> row(b.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (int i = 1; i <= a.size(); ++i) {
        int diagonal = std::exchange(row[0], i);
        for (int j = 1; j <= b.size(); ++j) {
            const int changed = diagonal + (a.at(i - 1) == b.at(j - 1) ? 0 : 1);
            diagonal = row.at(j);
            row[j] = std::min({changed, row.at(j) + 1, row.at(j - 1) + 1});
        }
    }
    return row.last();
}

/// ", did you mean X?", where something is near enough.
QString suggestion(const QString& word, const QStringList& known)
{
    constexpr int near = 2;
    QString best;
    int least = near + 1;
    for (const QString& candidate : known) {
        const int far = distance(word, candidate);
        if (far < least && far < candidate.size() - 1) {
            least = far;
            best = candidate;
        }
    }
    return best.isEmpty() ? QString() : QStringLiteral(", did you mean \"%1\"?").arg(best);
}

QString ofUnexpected(const ShapeCommand& command, const QStringList& words)
{
    const auto isOption = [](const QString& word) { return word.startsWith('-'); };
    const auto option = std::find_if(words.begin(), words.end(), isOption);
    if (option != words.end()) {
        QStringList known;
        for (const ShapeOption& one : command.options)
            known += one.names;
        const QString name = option->section('=', 0, 0);
        return QStringLiteral("there is no option \"%1\"%2").arg(name, suggestion(name, known));
    }
    const QString word = words.value(0);
    if (command.commands.isEmpty())
        return QStringLiteral("\"%1\" is too much").arg(word);
    QStringList known;
    for (const ShapeCommand& one : command.commands)
        known.append(one.name);
    return QStringLiteral("there is no command \"%1\"%2").arg(word, suggestion(word, known));
}

QString ofMissingCommand(const ShapeCommand& command)
{
    QStringList names;
    for (const ShapeCommand& one : command.commands)
        names.append(one.name);
    return QStringLiteral("wanted one of %1").arg(names.join(QStringLiteral(", ")));
}

/// The parser's words for a value that does not fit, said as everywhere else.
QString ofValue(const QString& text)
{
    const auto form = [](const char* pattern) {
        return QRegularExpression(QRegularExpression::anchoredPattern(QString::fromLatin1(pattern)),
                                  QRegularExpression::DotMatchesEverythingOption);
    };
    static const struct
    {
        QRegularExpression parsers;
        QString ours;
    } forms[] = {
        {form("Could not convert: (.+) = (.*)"),
         QStringLiteral("\\1: wanted a number, got \"\\2\"")},
        {form("(.+): Value (.*) not in range (.+)"),
         QStringLiteral("\\1: wanted a number from \\3, got \"\\2\"")},
        {form("(.+): (.*) not in \\{(.+)\\}"),
         QStringLiteral("\\1: wanted one of \\3, got \"\\2\"")},
        {form("(.+): 1 required (.+) missing"), QStringLiteral("\\1: its value, \\2, is missing")},
    };
    for (const auto& [parsers, ours] : forms) {
        if (parsers.match(text).hasMatch())
            return QString(text).replace(parsers, ours);
    }
    return text;
}

} // namespace

QString usageMessage(const CLI::App& program, const CLI::ParseError& error)
{
    const CLI::App* app = &program;
    QString words = QString::fromStdString(program.get_name());
    while (!app->get_subcommands().empty()) {
        app = app->get_subcommands().front();
        words += ' ' + QString::fromStdString(app->get_name());
    }
    const ShapeCommand command = shapeOf(*app);
    QString text = QString::fromUtf8(error.what());
    if (dynamic_cast<const CLI::ExtrasError*>(&error)) {
        QStringList left;
        for (const std::string& word : program.remaining(true))
            left.append(QString::fromStdString(word));
        text = ofUnexpected(command, left);
    } else if (dynamic_cast<const CLI::RequiredError*>(&error)) {
        text = command.commands.isEmpty()
                   ? text.replace(QStringLiteral(" is required"), QStringLiteral(" is missing"))
                   : ofMissingCommand(command);
    } else {
        text = ofValue(text);
    }
    return QStringLiteral("%1 (see %2 --help)").arg(text, words);
}

} // namespace cli
