// File names: a way of reading and a line for the first name, then changes of it, each a choice and a line.
#include "fuzz/fuzz_target.h"

#include <krcore/files/krfilename.h>
#include <krplatform/text/casing.h>

#include <algorithm>

namespace kr::fuzz
{

namespace
{

void ReplaceOnePass(Units & text, Units const & oldText, Units const & newText)
{
    for (std::size_t hit = 0; (hit = text.find(oldText, hit)) != Units::npos; hit += newText.size())
        text.replace(hit, oldText.size(), newText);
}

Units WithBackslashes(Units text)
{
    std::ranges::replace(text, WCHAR('/'), WCHAR('\\'));
    return text;
}

void RemoveTrailing(Units & text) { text.erase(text.find_last_not_of('\\') + 1); }

/// The rules of file names step by step, without a short cut.
struct SlowName
{
    Units drive, dir, baseName, ext;

    void SetDrive(Units const & text)
    {
        drive = WithBackslashes(text);
        if (!drive.starts_with('\\'))
            RemoveTrailing(drive);
    }
    void SetDir(Units const & text)
    {
        dir = WithBackslashes(text);
        if (!dir.starts_with('\\'))
            dir.insert(0, 1, '\\');
        RemoveTrailing(dir);
        ReplaceOnePass(dir, OLESTR("\\.\\"), OLESTR("\\"));
        ReplaceOnePass(dir, OLESTR("\\\\"), OLESTR("\\"));
    }
    void SetBaseName(Units const & text)
    {
        baseName = WithBackslashes(text);
        baseName.erase(0, baseName.find_first_not_of('\\'));
        RemoveTrailing(baseName);
    }
    void SetExt(Units const & text) { ext = text.substr(text.rfind('.') + 1); }
    void SetName(Units const & text)
    {
        Units name = WithBackslashes(text);
        name.erase(0, name.rfind('\\') + 1);
        std::size_t const point = name.rfind('.');
        SetBaseName(name.substr(0, point));
        SetExt(point == Units::npos ? Units() : name.substr(point));
    }
    void SetPath(Units const & path)
    {
        std::size_t colon = path.find(':');
        if (colon == Units::npos && (path.starts_with(OLESTR("\\\\")) || path.starts_with(OLESTR("//"))))
            colon = 1;
        drive.clear();
        if (colon == Units::npos)
            return SetDir(path);
        if (colon > 0)
            SetDrive(path.substr(0, colon));
        SetDir(path.substr(colon + 1));
    }

    static SlowName Read(Units const & text, bool isPath)
    {
        SlowName name;
        Units const whole = WithBackslashes(text);
        std::size_t const last = whole.rfind('\\');
        if (isPath)
            name.SetPath(whole);
        else if (last != Units::npos)
            name.SetPath(whole.substr(0, last));
        if (!isPath)
            name.SetName(whole.substr(last + 1));
        return name;
    }

    bool HasPath() const { return !drive.empty() || !dir.empty(); }
    Units Path(bool trailing) const
    {
        Units const colon = drive.empty() || drive == OLESTR("\\") ? OLESTR("") : OLESTR(":");
        return drive + colon + dir + (trailing && HasPath() ? OLESTR("\\") : OLESTR(""));
    }
    Units Name() const { return baseName.empty() || ext.empty() ? baseName : baseName + WCHAR('.') + ext; }
    Units FullName(bool trailing) const { return Path(trailing || !Name().empty()) + Name(); }

    void InsertPath(Units const & path) { SetPath(Read(path, true).Path(false) + dir); }
    SlowName Joined(SlowName right) const
    {
        right.InsertPath(Path(true));
        return right;
    }

    void ReplaceIn(Units const & everywhere, Units const & inNamesOnly, WCHAR replacement)
    {
        auto const replace = [replacement](Units & text, Units const & characters)
        {
            if (replacement == 0)
                std::erase_if(text, [&](WCHAR unit) { return characters.find(unit) != Units::npos; });
            else // one after the other: the replacement may be a character that is replaced later
                for (WCHAR const character : characters)
                    std::ranges::replace(text, character, replacement);
        };
        replace(dir, everywhere);
        replace(baseName, everywhere + inNamesOnly);
        replace(ext, everywhere + inNamesOnly);
    }

    bool operator==(SlowName const &) const = default;
};

SlowName PartsOf(CKrFileName const & name)
{
    auto const units = [](CString const & text) { return Units(text.View()); };
    return {units(name.GetDrive()), units(name.GetDir()), units(name.GetBaseName()), units(name.GetExt())};
}

Units Folded(Units text)
{
    std::ranges::transform(text, text.begin(), detail::UpperCase);
    return text;
}

void CheckReading(CKrFileName const & name, SlowName const & slow)
{
    KR_LAW(PartsOf(name) == slow);
    KR_LAW(name.GetName().View() == slow.Name());
    for (bool const trailing : {false, true})
    {
        KR_LAW(name.GetPath(trailing).View() == slow.Path(trailing));
        KR_LAW(name.GetFullName(trailing).View() == slow.FullName(trailing));
    }
    KR_LAW(name.IsDirName() == (slow.baseName.empty() && slow.ext.empty()));
    KR_LAW(name == name && name > name && !(name < name));
}

void CheckRelation(CKrFileName const & name, SlowName const & slow, Units const & text)
{
    CString const base = TextOf(text);
    Units const basePath = SlowName::Read(text, true).Path(true), path = slow.Path(true);
    bool const isBelow = Folded(path.substr(0, basePath.size())) == Folded(basePath);
    KR_LAW(name.IsRelativeToPath(base) == isBelow);
    Units const whole = slow.Path(false);
    Units const relative = !isBelow ? whole : whole.substr(std::min(basePath.size(), whole.size()));
    KR_LAW(name.GetRelativePath(base, false).View() == relative);
    Units const rest = isBelow ? path.substr(basePath.size()) : path;
    KR_LAW(name.GetRelativeFileName(base).View() == (name.IsDirName() ? Units() : rest + slow.Name()));

    CKrFileName const other(base, false);
    SlowName const slowOther = SlowName::Read(text, false);
    KR_LAW((name < other) == (slow.FullName(true) < slowOther.FullName(true)));
    KR_LAW((name == other) ==
           (Folded(slow.baseName) == Folded(slowOther.baseName) && Folded(slow.ext) == Folded(slowOther.ext) &&
            Folded(slow.dir) == Folded(slowOther.dir) && Folded(slow.drive) == Folded(slowOther.drive)));
    CheckReading(name + other, slow.Joined(slowOther));
}

void Change(CKrFileName & name, SlowName & slow, unsigned choice, Units const & units)
{
    CString const text = TextOf(units);
    WCHAR const replacement = units.empty() ? WCHAR() : units[0];
    switch (choice)
    {
    case 0:
        return name.SetDrive(text), slow.SetDrive(units);
    case 1:
        return name.SetDir(text), slow.SetDir(units);
    case 2:
        return name.SetBaseName(text), slow.SetBaseName(units);
    case 3:
        return name.SetExt(text), slow.SetExt(units);
    case 4:
        return name.SetName(text), slow.SetName(units);
    case 5:
        return name.SetPath(text), slow.SetPath(units);
    case 6:
        return name.AppendDir(text), slow.SetDir(slow.dir + SlowName::Read(units, true).dir);
    case 7:
        return name.InsertDir(text), slow.SetDir(SlowName::Read(units, true).dir + slow.dir);
    case 8:
        return name.InsertPath(text), slow.InsertPath(units);
    case 9:
        KR_LAW(name.ReplaceInvalidChar(replacement));
        return slow.ReplaceIn(OLESTR("?:<>|*\""), OLESTR("\\/"), replacement);
    default:
        KR_LAW(name.ReplaceReservedUrlChar(replacement));
        return slow.ReplaceIn(OLESTR(":=?#[]@$&'()*+,;"), OLESTR("/"), replacement);
    }
}

} // namespace

void CheckLaws(FuzzInput input)
{
    bool const isPath = input.Flag();
    Units const first = input.TextLine();
    CKrFileName name(TextOf(first), isPath);
    SlowName slow = SlowName::Read(first, isPath);
    CheckReading(name, slow);
    while (!input.IsAtEnd())
    {
        unsigned const choice = input.Below(11);
        Units const text = input.TextLine();
        Change(name, slow, choice, text);
        CheckReading(name, slow);
        CheckRelation(name, slow, text);
    }
}

} // namespace kr::fuzz
