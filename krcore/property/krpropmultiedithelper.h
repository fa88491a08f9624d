// Editing several property sets as one.
#pragma once

#include <krcore/export.h>
#include <krcore/property/krpropertyset.h>

#include <span>
#include <vector>

/// What the multi-edit helpers share: the main set that a grid shows and edits, how it is compared with each set, and how changes are
/// carried back. A property of the main set whose value differs in any set carries the attribute "Kr.VariedMode" (true). A
/// change counts only if the client sets the modified flag of the main set's property. Whatever is thrown while a set is compared or written
/// leaves as a `CKrException` with the location of that step; sets that were written before stay so. Main set and reference change
/// together: where memory runs out for either, both stay as they were.
class KRCORE_API CKrPropMultiEditHelperBase
{
public:
    CKrPropMultiEditHelperBase();
    /// Copies are deep.
    CKrPropMultiEditHelperBase(CKrPropMultiEditHelperBase const & other);
    CKrPropMultiEditHelperBase & operator=(CKrPropMultiEditHelperBase const & other);
    virtual ~CKrPropMultiEditHelperBase();

    /// Takes a copy as the main set; it is then no longer taken from the first set.
    void SetMainPropertySet(CKrPropertySet const & set);
    CKrPropertySet & GetMainPropertySet() noexcept { return m_mainSet; }
    CKrPropertySet const & GetMainPropertySet() const noexcept { return m_mainSet; }
    /// Says that all sets have the same shape: counterparts are then found by place, not by name.
    void SetCommonStruct(bool commonStruct) noexcept { m_commonStruct = commonStruct; }
    /// Deliberate: no operation ever sets this flag.
    bool HasChanged() const noexcept { return m_changed; }

protected:
    // The first two run under the guard. Properties without a counterpart are skipped; always true.
    /// Marks the properties of the main set whose values differ in `set`.
    bool PreparePropSet(CKrPropertySet const & set);
    /// Carries the flagged values of the main set to `set`, where they differ, and flags them there.
    bool UpdatePropSet(CKrPropertySet & set);
    bool PrepareProperty(CKrProperty & main, CKrProperty const & source);
    bool UpdateProperty(CKrProperty const & main, CKrProperty & target);

    CKrPropertySet m_mainSet;
    CKrPropertySet m_referenceSet; ///< the main set as it stood when it was prepared; kept for derived classes
    std::vector<CKrPropertySet *> m_spareSets; ///< not owned; kept for derived classes
    bool m_commonStruct = false;
    bool m_changed = false;
    bool m_mainSetFromFirst = true;

    /// Takes both sets over, so that they never part from each other.
    void TakeSets(CKrPropertySet && mainSet, CKrPropertySet && referenceSet) noexcept;

private:
    class EditedNodes;
    friend class CKrPropMultiEditHelper; // which updates many sets

    CKrProperty * FindCounterpart(CKrProperty const & child, unsigned int index, CKrProperty const & other) const;
    bool UpdatePropSets(std::span<CKrPropertySet * const> sets);
};

/// Edits a list of sets at once.
///
///     CKrPropMultiEditHelper helper;
///     for (CKrPropertySet & set : sets) helper.AddPropertySet(&set);
///     helper.PrepareEdit();                                    the main set: values of the first, varied marks
///     CKrProperty * color = helper.GetMainPropertySet().GetProperty(OLESTR("Color"), OLESTR("General"));
///     color->SetColor(CKrColor(1));
///     color->SetModified(true);
///     helper.Update();                                         every set has the colour; all else is as it was
class KRCORE_API CKrPropMultiEditHelper : public CKrPropMultiEditHelperBase
{
public:
    CKrPropMultiEditHelper();
    /// The sets are not owned and must outlive the last `Update`.
    explicit CKrPropMultiEditHelper(std::vector<CKrPropertySet *> const & sets);
    CKrPropMultiEditHelper(CKrPropMultiEditHelper const & other);
    CKrPropMultiEditHelper & operator=(CKrPropMultiEditHelper const & other);
    ~CKrPropMultiEditHelper() override;

    /// Null is ignored.
    void AddPropertySet(CKrPropertySet * set);
    /// Deliberate: the pointers are not tested here and must not be null.
    void AddPropertySet(std::vector<CKrPropertySet *> const & sets);

    /// Makes the main set a copy of the first set, unless the caller gave one, and marks what differs in any set. False without sets. Writes
    /// a trace line.
    bool PrepareEdit();
    /// Carries the flagged values to every set; always true. Writes a trace line.
    bool Update();

private:
    std::vector<CKrPropertySet *> m_sets;
};

/// The same with the loop left to the caller: give the main set, then call once per set.
class KRCORE_API CKrSimplePropMultiEditHelper : public CKrPropMultiEditHelperBase
{
public:
    bool Prepare(CKrPropertySet const & set) { return PreparePropSet(set); }
    bool Update(CKrPropertySet & set) { return UpdatePropSet(set); }
};
