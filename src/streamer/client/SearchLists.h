#pragma once

#include "client/Listing.h"
#include "client/TreeWalk.h"

#include <QMap>

/// What the service can be searched for, found by walking the tree from its top node.
namespace cli {

/// albums, tracks, artists, playlists.
QStringList searchKinds();

/// Kind -> encoded path of its list of what \p text finds.
QMap<QString, QString> searchLists(TreeWalk& walk, const QString& text);

/// The list of what \p text finds in a module of which nothing is known but where its search
/// stands: at a question, or in a container whose first row is one. Empty where that fails.
QString searchList(ApiClient& api, const QString& searchPath, const QString& text);

/// The row that \p text most likely means, of one kind or of all: first what is called so, artists
/// before tracks, albums and playlists; then what begins with it, then what holds it.
ListedRow bestHit(TreeWalk& walk, const QString& text, const QString& kind = QString());

} // namespace cli
