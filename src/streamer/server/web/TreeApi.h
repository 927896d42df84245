#pragma once
#include "KeptRows.h"
#include "ReplyWaiter.h"
#include "RouteTable.h"

#include <kelo/CMRequest.h>

class JsonText;

/// The calls of the HTTP API that read and write the content tree. Owned by the web server; any
/// thread, and none waits for the tree's answer.
class TreeApi
{
public:
    TreeApi(ReplyWaiter& waiter, KeptRows& kept) : m_waiter(waiter), m_kept(kept) {}

    void addRoutes(RouteTable& routes);

private:
    void rows(const HttpCall& call, const HttpAnswer& answer);
    /// The row at a path, and in which list it stands.
    void row(const HttpCall& call, const HttpAnswer& answer);
    void data(const HttpCall& call, const HttpAnswer& answer);
    void set(const HttpCall& call, const HttpAnswer& answer);

    struct Range;
    /// Asks for the next page of a range, or answers.
    void fetch(const std::shared_ptr<Range>& range);
    struct Lookup;
    void lookUp(const std::shared_ptr<Lookup>& lookup);
    /// Asks the tree, then answers with the error or what `reply` makes of the answer.
    template <class Request, class Reply>
    void ask(const Request& request, const HttpAnswer& answer, Reply reply);

    ReplyWaiter& m_waiter;
    KeptRows& m_kept; ///< gets what may be played
};
