#pragma once
#include "ReplyWaiter.h"
#include "RouteTable.h"

#include <kelo/CMRequest.h>

/// The calls of the HTTP API that read and write the content tree. Owned by the web server; any
/// thread, which waits for the tree's answer.
class TreeApi
{
public:
    explicit TreeApi(ReplyWaiter& waiter) : m_waiter(waiter) {}

    void addRoutes(RouteTable& routes);

private:
    HttpReply rows(const HttpCall& call);
    /// The row at a path, and in which list it stands.
    HttpReply row(const HttpCall& call);
    HttpReply data(const HttpCall& call);
    HttpReply set(const HttpCall& call);

    /// Rows of a range of any width, fetched in pages.
    struct Rows
    {
        QVariantList rows;
        KeloRowsRoles last; ///< the last page's answer
        CMError error;
    };
    Rows fetch(const CMPath& path, int from, int to, const QStringList& roles);

    ReplyWaiter& m_waiter;
};
