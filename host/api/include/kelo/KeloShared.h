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

/// Counted handle to shared data, cheap to copy and safe to hand to another thread: making a handle
/// is a release store and reading it an acquire load, so a receiver sees what was written before
/// the hand-over whatever carried it (a queued call, a list behind a lock). The handle itself is
/// not for concurrent writers. T may be incomplete where handles are only copied.
template <class T>
class KeloShared
{
public:
    KeloShared() = default;
    explicit KeloShared(T* data) { set(added(data)); }
    KeloShared(const KeloShared& other) { set(added(other.data())); }
    KeloShared(KeloShared&& other) noexcept { set(other.release()); }
    template <class Other>
    explicit KeloShared(const KeloShared<Other>& other) : KeloShared(static_cast<T*>(other.get()))
    {
        static_assert(std::is_base_of_v<T, Other>, "not a handle to a deriving class");
    }
    KeloShared& operator=(KeloShared other) noexcept
    {
        KeloSharedData* const mine = data();
        set(other.data());
        other.set(mine);
        return *this;
    }
    ~KeloShared()
    {
        KeloSharedData* const shared = data();
        if (shared && shared->m_references.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete shared;
    }

    T* get() const { return static_cast<T*>(data()); }
    T* operator->() const { return get(); }
    T& operator*() const { return *get(); }
    explicit operator bool() const { return data() != nullptr; }
    bool operator==(const KeloShared& other) const { return data() == other.data(); }

    /// Whether this handle is the only one, so that its data may be written.
    bool isUnique() const
    {
        return data() && data()->m_references.load(std::memory_order_acquire) == 1;
    }

private:
    static KeloSharedData* added(KeloSharedData* shared)
    {
        if (shared)
            shared->m_references.fetch_add(1, std::memory_order_relaxed);
        return shared;
    }
    KeloSharedData* data() const { return m_data.load(std::memory_order_acquire); }
    void set(KeloSharedData* shared) { m_data.store(shared, std::memory_order_release); }
    KeloSharedData* release()
    {
        KeloSharedData* const shared = data();
        set(nullptr);
        return shared;
    }

    std::atomic<KeloSharedData*> m_data{nullptr};
};
