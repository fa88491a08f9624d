// A map of pointers that owns what they point to.
#pragma once

#include <iterator>
#include <map>
#include <memory>
#include <utility>

namespace kr
{

/// Objects by key. Overwriting, nulling and clearing delete the held object, `RemoveObject` hands it over. A key can
/// hold null and still counts.
///
///     kr::ownermap<CString, CKrObject> map;
///     map.AddObject(OLESTR("a"), object);             takes ownership
///     map.SetNULL(OLESTR("a"));                       deletes the object
///     map.GetCount()                                  -> 1, the key is still there
///
/// Deliberate: copying copies the pointers and not the objects. Both maps would then delete them, so a class that holds
/// a map does not copy it plainly, and a map that is to give up its pointers does so by `GetMap().clear()`.
template <class K, class T>
class ownermap
{
public:
    ownermap() = default;
    ownermap(ownermap const & other) = default;
    ~ownermap() { Clear(); }

    /// Deliberate: drops its own entries without deleting their objects. When memory runs out (`std::bad_alloc`) the
    /// map stays as it was.
    ownermap & operator=(ownermap const & other)
    {
        std::map<K, T *> entries(other.m_map);
        m_map.swap(entries);
        return *this;
    }

    /// Takes ownership; an object that the key already holds is deleted. When memory runs out (`std::bad_alloc`)
    /// `object` is deleted and the map stays as it was. Deliberate: adding the pointer that the key already holds
    /// deletes that object and keeps the dead pointer, so it must not be done.
    void AddObject(K const & key, T * object)
    {
        std::unique_ptr<T> owner(object);
        T *& held = m_map[key];
        delete std::exchange(held, owner.release());
    }

    /// Null if the key is missing or holds null.
    T * GetObjectW(K const & key) const
    {
        auto const entry = m_map.find(key);
        return entry == m_map.end() ? nullptr : entry->second;
    }

    /// The object at that place in the order of the keys; null past the end. Takes time in proportion to `index`.
    T * GetObjectAt(unsigned int index) const
    {
        return index < m_map.size() ? std::next(m_map.begin(), index)->second : nullptr;
    }

    unsigned int GetCount() const { return static_cast<unsigned int>(m_map.size()); }

    /// Erases the entry and hands its object to the caller; null if the key is missing.
    T * RemoveObject(K const & key)
    {
        auto const entry = m_map.find(key);
        if (entry == m_map.end())
            return nullptr;
        T * const object = entry->second;
        m_map.erase(entry);
        return object;
    }

    /// Erases the entry and deletes its object.
    void DeleteObject(K const & key) { delete RemoveObject(key); }

    /// Erases all entries and deletes their objects, each when it is out of the map.
    void Clear()
    {
        while (!m_map.empty())
            delete RemoveFirst();
    }

    /// Deletes the object and keeps the key with null; a missing key is inserted.
    void SetNULL(K const & key) { AddObject(key, nullptr); }

    /// Deletes all objects and keeps all keys with null.
    void SetAllNULL()
    {
        for (auto & entry : m_map)
            delete std::exchange(entry.second, nullptr);
    }

    /// Changes made in the map itself delete nothing.
    std::map<K, T *> & GetMap() { return m_map; }
    std::map<K, T *> const & GetMap() const { return m_map; }

private:
    T * RemoveFirst()
    {
        T * const object = m_map.begin()->second;
        m_map.erase(m_map.begin());
        return object;
    }

    std::map<K, T *> m_map;
};

} // namespace kr
