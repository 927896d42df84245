#pragma once

#include "client/ApiClient.h"
#include "client/JsonText.h"

namespace cli {

/// The path of the context menu that a row (or a container's own roles) carries; else empty.
QString contextPath(const QJsonObject& row);
/// Whether \p row is a "Container" (can be opened), an "Action", a "Text" (can be filled in), ...
bool isOfType(const QJsonObject& row, const char* type);
/// Whether one of the segments of the row's path is \p segment. Titles are translated, paths not.
bool hasSegment(const QJsonObject& row, const char* segment);

/// Finds rows, menus and data by reading the tree as a screen does, and sends values to it. It
/// stops at the first failure: from then on nothing is asked or sent, everything comes out empty,
/// and reply() is what went wrong. Owned by a command for one run, used on the main thread.
class TreeWalk
{
public:
    using Match = std::function<bool(const QJsonObject&)>;

    explicit TreeWalk(ApiClient& api) : m_api(api) { m_reply.outcome = ApiReply::Outcome::Done; }

    bool isDone() const { return m_reply.isDone(); }
    /// How the streamer answered last, or the refusal.
    const ApiReply& reply() const { return m_reply; }
    /// Fails, unless something has failed before.
    void refuse(const QString& message);

    /// A page of rows, with the container's own roles.
    QJsonObject page(const QString& path, int from = 0, int to = pageSize - 1);
    /// The first row that \p match accepts; empty when no row does.
    QJsonObject find(const QString& list, const Match& match);
    /// The same, where a missing row is a failure: \p missing says so.
    QJsonObject need(const QString& list, const Match& match, const QString& missing);
    /// The row of a context menu that is of a type and has \p segment in its path; \p missing says
    /// what it means that there is none.
    QJsonObject inMenu(const QString& menu, const char* type, const char* segment,
                       const QString& missing = QStringLiteral("the menu of this row does not "
                                                               "offer this (kelo menu)"));
    /// The row at a number; a number behind the last one is a failure.
    QJsonObject rowAt(const QString& list, int number);
    /// How many items a list has; a row that only says that there are none is no item.
    int count(const QString& list);
    /// How many of the rows \p from to \p to have the path \p wanted.
    int countOf(const QString& list, int from, int to, const QString& wanted);
    /// A node's data roles, in the user's language or in \p language.
    QJsonObject data(const QString& path, const QString& language = QString());
    /// The context menu of the row or list at \p path; a menu's own path is given back.
    QString menuOf(const QString& path);
    /// The path of the user's collection, and of the list of the user's own playlists in it.
    QString ownCollection();
    QString ownPlaylists();
    void set(const QString& path, const QByteArray& value = "1", const QString& role = QString());

private:
    static constexpr int pageSize = 50;

    QJsonObject take(const std::function<ApiReply()>& ask);

    ApiClient& m_api;
    ApiReply m_reply;
};

} // namespace cli
