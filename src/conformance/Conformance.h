#pragma once
#include "Asker.h"
#include "MinimalHost.h"
#include <vector>

/// The checks, one after the other, of one module in a host of its own. Owned by the child
/// process's main, used on its thread.
class Conformance
{
public:
    Conformance(const Options& options, Findings& findings);
    /// All of them, or as many as the module lets through.
    void run();

private:
    /// A list that the walk found.
    struct List
    {
        CMPath path;
        Page first; ///< its first page
    };

    bool start();
    void walk();
    /// Whether it opened, and what of its rows opens in turn.
    bool visit(const CMPath& path, QList<CMPath>& further);
    void checkRow(const CMPath& list, const KeloRoles& row);
    void checkRanges();
    void checkRangesOf(const List& list);
    void checkUnknown();
    void checkParallel();
    void checkPlay();
    void checkNotices();
    bool checkAction(const CMPath& action);
    void checkStop();
    void settle();

    const Options m_options;
    Findings& m_findings;
    MinimalHost m_host;
    Asker m_asker;
    std::vector<List> m_lists;
};
