#pragma once
#include <atomic>
#include <type_traits>
#include <utility>

/// Base of shared data that KeloShared counts. Data is filled by its maker and not changed once a
/// second handle exists, unless the deriving class guards it with a mutex of its own.
class KeloSharedData
{
public:
    KeloSharedData() = default;
    KeloSharedData(const KeloSharedData&) noexcept {}
    KeloSharedData& operator=(const KeloSharedData&) = delete;
    virtual ~KeloSharedData() = default;

    mutable std::atomic<int> m_references{0};
};

/// Counted handle to shared data, cheap to copy and safe to hand to another thread: get() is an
/// acquire load that pairs with the copy made by the sender, so a receiver sees what was written
/// before the hand-over whatever carried it (a queued call, a list behind a lock).
/// The handle itself is not for concurrent writers. T may be incomplete where handles are only copied.
template <class T>
class KeloShared
{
public:
    KeloShared() = default;
    explicit KeloShared(T* data) : m_data(data) { add(); }
    KeloShared(const KeloShared& other) : m_data(other.m_data) { add(); }
    KeloShared(KeloShared&& other) noexcept : m_data(std::exchange(other.m_data, nullptr)) {}
    template <class Other>
    explicit KeloShared(const KeloShared<Other>& other) : KeloShared(static_cast<T*>(other.get()))
    {
        static_assert(std::is_base_of_v<T, Other>, "not a handle to a deriving class");
    }
    KeloShared& operator=(KeloShared other) noexcept
    {
        std::swap(m_data, other.m_data);
        return *this;
    }
    ~KeloShared()
    {
        if (m_data && m_data->m_references.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete m_data;
    }

    T* get() const
    {
        if (m_data)
            (void)m_data->m_references.load(std::memory_order_acquire);
        return static_cast<T*>(m_data);
    }
    T* operator->() const { return get(); }
    T& operator*() const { return *get(); }
    explicit operator bool() const { return m_data != nullptr; }
    bool operator==(const KeloShared& other) const { return m_data == other.m_data; }

    /// Whether this handle is the only one, so that its data may be written.
    bool isUnique() const
    {
        return m_data && m_data->m_references.load(std::memory_order_acquire) == 1;
    }

private:
    void add() const
    {
        if (m_data)
            m_data->m_references.fetch_add(1, std::memory_order_acq_rel);
    }

    KeloSharedData* m_data = nullptr;
};
