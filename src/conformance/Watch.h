#pragma once
#include <atomic>
#include <kelo/CMRoot.h>
#include <memory>

/// Counts what is told of one list for as long as it lives. Owned by the lists of Conformance. Any
/// thread.
class Watch
{
public:
    explicit Watch(const CMPath& path)
        : m_id(CMRoot().openRows(path, [count = m_count](const CMRowsNotice&) { ++*count; }))
    {
    }
    ~Watch()
    {
        if (m_id != 0)
            CMRoot().closeRows(m_id);
    }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    int count() const { return *m_count; }

private:
    const std::shared_ptr<std::atomic<int>> m_count = std::make_shared<std::atomic<int>>(0);
    const quint64 m_id;
};
