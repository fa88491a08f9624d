// Properties for tests: counted while they live, and looked at as text.
#pragma once

#include <krcore/property/krproperty.h>

#include <gtest/gtest.h>

namespace kr::test
{

/// Its clone is counted too.
class CountedProperty : public CKrProperty
{
public:
    explicit CountedProperty(CString const & name) : CKrProperty(name, CString(), true, true) { ++s_living; }
    CountedProperty(CountedProperty const & other) : CKrProperty(other) { ++s_living; }
    CountedProperty & operator=(CountedProperty const &) = delete;
    ~CountedProperty() override { --s_living; }

    CountedProperty * Clone() const override { return new CountedProperty(*this); }

    static int Living() { return s_living; }

private:
    static inline int s_living = 0;
};

inline CKrProperty * AddCounted(CKrProperty & parent, CString const & name)
{
    CKrProperty * const child = new CountedProperty(name);
    parent.AddSubProperty(child);
    return child;
}

/// The names of a tree: "a(b(c) d)".
inline CString TreeOf(CKrProperty const & node)
{
    CString text = node.GetName();
    for (unsigned int index = 0; index < node.GetSubPropertyCount(); ++index)
        text += (index == 0 ? OLESTR("(") : OLESTR(" ")) + TreeOf(*node.GetSubPropertyAt(index));
    return node.IsNode() ? text + OLESTR(")") : text;
}

/// That each node of the tree knows its parent, its level and its place.
inline void ExpectLinked(CKrProperty const & node)
{
    for (unsigned int index = 0; index < node.GetSubPropertyCount(); ++index)
    {
        CKrProperty const & child = *node.GetSubPropertyAt(index);
        EXPECT_EQ(child.GetParentProperty(), &node);
        EXPECT_EQ(child.GetLevel(), node.GetLevel() + 1);
        EXPECT_EQ(child.GetPropertyIndex(), static_cast<int>(index));
        EXPECT_EQ(child.IsFirstProperty(), index == 0);
        EXPECT_EQ(child.IsLastProperty(), index + 1 == node.GetSubPropertyCount());
        EXPECT_FALSE(child.IsRoot());
        ExpectLinked(child);
    }
}

} // namespace kr::test
