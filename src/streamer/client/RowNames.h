#pragma once

#include "client/CommandContext.h"

/// What a person may call a row by: its path, its number in what the terminal listed last, its
/// title there.
namespace cli {

/// The row that \p text names; nothing when there is none or more than one, which is printed. A
/// number that no listing explains is left as it is, as the path: it may be a track's id.
std::optional<ListedRow> namedRow(const CommandContext& context, const QString& text);

/// The paths of the rows that \p texts name; nothing when one of them names none.
std::optional<QStringList> namedPaths(const CommandContext& context, const QStringList& texts);

/// What a person would call the list at \p path, which may be one of many of its kind: the title of
/// its row. Empty where nobody looks, or the row is not known.
QString nameOfList(const CommandContext& context, const QString& path);

/// The same of the list that a document of the player names, or what the list calls itself.
QString titleOfList(const CommandContext& context, const QJsonObject& player);

/// Runs \p run with the path that \p text names; else gives the exit status.
int atPath(const CommandContext& context, const QString& text,
           const std::function<int(const QString&)>& run);

} // namespace cli
