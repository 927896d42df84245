#pragma once

#include "client/ApiClient.h"

#include <functional>
#include <QJsonObject>

namespace cli {

/// A row's role as text, as it came.
QString roleText(const QJsonObject& row, const char* role);
/// The path of the context menu that a row (or a container's own roles) carries; else empty.
QString contextPath(const QJsonObject& row);
/// Whether \p row can be opened, activated, filled in.
bool isContainer(const QJsonObject& row);
bool isAction(const QJsonObject& row);
bool isField(const QJsonObject& row);
/// Whether one of the segments of the row's path is \p segment. Titles are translated, paths not.
bool hasSegment(const QJsonObject& row, const char* segment);

/// Finds rows, menus and data by reading the tree as a screen does. Owned by a command for one run,
/// used on the main thread. It changes nothing. Every function gives how the streamer answered, or
/// a refusal that says what is missing, and fills its last argument.
class TreeWalk
{
public:
    using Match = std::function<bool(const QJsonObject&)>;

    explicit TreeWalk(ApiClient& api) : m_api(api) {}

    /// A page of rows that begins at \p from, at most 50, with the container's own roles.
    [[nodiscard]] ApiReply page(const QString& path, int from, QJsonObject& page) const;
    /// The first row that \p match accepts; an empty object when no row does.
    [[nodiscard]] ApiReply find(const QString& list, const Match& match, QJsonObject& row) const;
    /// The same, where a missing row is a refusal: \p missing says so.
    [[nodiscard]] ApiReply need(const QString& list, const Match& match, const QString& missing,
                                QJsonObject& row) const;
    /// The row at a number; a number behind the last one is a refusal.
    [[nodiscard]] ApiReply rowAt(const QString& list, int number, QJsonObject& row) const;
    /// How many items a list has; a row that only says that there are none is no item.
    [[nodiscard]] ApiReply count(const QString& list, int& items) const;
    /// How many of the rows \p from to \p to have the path \p wanted.
    [[nodiscard]] ApiReply countOf(const QString& list, int from, int to, const QString& wanted,
                                   int& rows) const;
    /// A node's data roles.
    [[nodiscard]] ApiReply data(const QString& path, QJsonObject& roles) const;
    /// The context menu of the row or list at \p path; a menu's own path is given back.
    [[nodiscard]] ApiReply menuOf(const QString& path, QString& menu) const;

private:
    ApiClient& m_api;
};

} // namespace cli
