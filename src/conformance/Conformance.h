#pragma once
#include "Asker.h"
#include "MinimalHost.h"
#include "Watch.h"
#include <functional>
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
        std::shared_ptr<Watch> watch;
        int told = 0; ///< what the watch had counted when the page was asked for
    };
    struct Fault
    {
        QString check;
        QString what;
    };
    using Faults = QList<Fault>;

    bool start();
    void walk();
    /// Whether it opened, and what of its rows opens in turn.
    bool visit(const CMPath& path, QList<CMPath>& further);
    /// Notes the faults of a list. One that is told to have changed meanwhile is looked at again.
    void judge(List& list, const std::function<Faults(List&)>& faultsOf);
    /// Asks for the list's first page.
    void look(List& list);
    bool isToldToChange(const List& list);
    Faults pageFaults(List& list);
    Faults lastPageFaults(const List& list);
    Faults pathFaults(const List& list) const;
    Faults rangeFaults(const List& list);
    void checkRow(const CMPath& list, const KeloRoles& row);
    void checkRanges();
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
