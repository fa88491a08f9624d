// Buffers as a sequence of operations: each the choice of a buffer and of an operation, a number, and a line where bytes are taken.
#include "fuzz/fuzz_target.h"
#include "fuzz/plain_buffer.h"

#include <krcore/text/krbuffer.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <type_traits>

namespace kr::fuzz
{

namespace
{

/// A buffer and what it should be.
template <class Buffer>
struct Twin
{
    Buffer buffer;
    PlainBuffer plain{static_cast<std::size_t>(Buffer().TrailingBytes())};

    void Check() const
    {
        auto const * const block = reinterpret_cast<unsigned char const *>(buffer.Get());
        KR_LAW(buffer.BufLength() == plain.length && buffer.BufSize() == plain.block.size());
        KR_LAW((block != nullptr) == plain.hasBlock);
        KR_LAW(std::equal(plain.block.begin(), plain.block.end(), block));
    }
};

template <class Buffer>
constexpr bool isWide = std::is_same_v<Buffer, CKrWcharBuffer>;
template <class Buffer>
using Unit = std::conditional_t<std::is_same_v<Buffer, CKrByteBuffer>, unsigned char,
                                std::conditional_t<isWide<Buffer>, WCHAR, char>>;

Bytes BytesOf(std::string_view text) { return Bytes(text.begin(), text.end()); }

Bytes BytesOf(Units const & text)
{
    Bytes bytes(text.size() * sizeof(WCHAR), 0);
    if (!text.empty())
        std::memcpy(bytes.data(), text.data(), bytes.size());
    return bytes;
}

template <class Buffer>
void Release(Twin<Buffer> & twin)
{
    auto * const block = twin.buffer.Release();
    KR_LAW((block != nullptr) == twin.plain.hasBlock);
    delete[] block;
    twin.plain.Free();
}

/// Lends the buffer a block of its own kind, content and terminator.
template <class Buffer>
void Attach(Twin<Buffer> & twin, unsigned count)
{
    constexpr std::size_t unitSize = sizeof(Unit<Buffer>);
    std::size_t const units = count + twin.plain.trailing / unitSize;
    std::vector<unsigned char> bytes(units * unitSize, 0x5A);
    auto * const block = new Unit<Buffer>[units];
    std::ranges::copy(bytes, reinterpret_cast<unsigned char *>(block));
    if constexpr (std::is_same_v<Buffer, CKrByteBuffer>)
        twin.buffer.Attach(block, count, static_cast<unsigned>(bytes.size()));
    else
    {
        twin.buffer.Attach(block, count);
        bytes[count * unitSize] = 0;
    }
    twin.plain.Attach(std::move(bytes), count * unitSize);
}

template <class Buffer>
void Assign(Twin<Buffer> & twin, Twin<Buffer> & other, bool isReleased)
{
    other.buffer.SetReleaseAssigned(isReleased);
    other.plain.isReleased = isReleased;
    twin.buffer = other.buffer;
    twin.plain.Take(other.plain);
    KR_LAW(other.buffer.GetReleaseAssigned() == isReleased);
    other.buffer.SetReleaseAssigned(false);
}

/// A copy is made while it is still a plain buffer, without trailing bytes.
template <class Buffer>
void Copy(Twin<Buffer> const & twin)
{
    Twin<Buffer> copy{Buffer(twin.buffer)};
    std::size_t const trailing = std::exchange(copy.plain.trailing, 0);
    copy.plain.Clone(twin.plain);
    copy.plain.trailing = trailing;
    copy.Check();
    copy.buffer.Add(7); // and asks for its room from then on
    copy.plain.Append({7});
    copy.Check();
}

/// Operations of all buffers.
template <class Buffer>
void Change(Twin<Buffer> & twin, Twin<Buffer> & other, unsigned choice, unsigned number, std::string_view line)
{
    Buffer & buffer = twin.buffer;
    PlainBuffer & plain = twin.plain;
    switch (choice)
    {
    case 0:
        buffer.Alloc(number);
        return plain.Alloc(number);
    case 1:
        buffer.AllocExact(number);
        return plain.AllocExact(number);
    case 2:
        static_cast<CKrRawBuffer &>(buffer).Assign(number, static_cast<unsigned char>(number));
        return plain.Assign(number, static_cast<unsigned char>(number));
    case 3:
        return Attach(twin, number % 300);
    case 4:
        return Release(twin);
    case 5:
        buffer.Clear();
        return plain.Clear();
    case 6:
        buffer.Free();
        return plain.Free();
    case 7:
        return Assign(twin, other, number % 2 != 0);
    case 8:
        buffer.Expand(number);
        return plain.Alloc(plain.length + number * (isWide<Buffer> ? 2 : 1));
    case 9:
    {
        std::size_t const length = number * (isWide<Buffer> ? 2u : 1u);
        buffer.SetLength(number);
        plain.length = length < plain.block.size() ? length : plain.length;
        return;
    }
    case 10:
        buffer.Add(static_cast<unsigned char>(number));
        return plain.Append(Bytes(1, static_cast<unsigned char>(number)));
    case 11:
        buffer.Add(BytesOf(line).data(), static_cast<unsigned>(line.size()));
        return plain.Append(BytesOf(line));
    case 12:
        static_cast<CKrByteBuffer &>(buffer).Add(other.buffer);
        return plain.Append(other.plain.Content());
    case 13:
    {
        std::size_t const start = plain.length == 0 ? 0 : number % plain.length; // a part of itself
        auto const * const own = reinterpret_cast<unsigned char const *>(buffer.Get());
        buffer.Add(own + start, static_cast<unsigned>(plain.length - start));
        return plain.Append(plain.Content().substr(start));
    }
    case 14:
        buffer.Remove();
        plain.length -= plain.length != 0;
        return;
    default:
        return Copy(twin);
    }
}

/// Operations that `CKrCharBuffer` and `CKrWcharBuffer` share; terminated texts end at their first zero.
template <class Buffer>
void ChangeText(Twin<Buffer> & twin, unsigned choice, unsigned number, std::string_view line)
{
    constexpr std::size_t unitSize = sizeof(Unit<Buffer>);
    Buffer & buffer = twin.buffer;
    PlainBuffer & plain = twin.plain;
    std::string const narrow(line.substr(0, line.find('\0')));
    Units const wide = FuzzInput::UnitsOf(line).c_str();
    auto const addNarrow = [&]
    {
        if (isWide<Buffer> && !narrow.empty())
            plain.AppendWidened(BytesOf(narrow));
        else if constexpr (!isWide<Buffer>)
        {
            plain.Append(BytesOf(narrow));
            plain.Terminate();
        }
    };
    auto const addWide = [&]
    {
        plain.Append(BytesOf(wide));
        plain.Terminate();
    };
    auto const construct = [&](Bytes const & bytes)
    {
        plain.SetBuffer(bytes, bytes.size() + plain.trailing);
        plain.Terminate();
    };
    switch (choice)
    {
    case 0:
        buffer.AddString(narrow.c_str());
        return addNarrow();
    case 1:
        buffer.AddString(wide.c_str());
        return addWide();
    case 2:
        buffer.AddString(static_cast<char>(number));
        plain.Alloc(plain.length + unitSize);
        plain.block[plain.length] = static_cast<unsigned char>(number);
        plain.length += unitSize;
        plain.block[plain.length] = 0;
        return;
    case 3:
        buffer.AddString(static_cast<WCHAR>(number));
        plain.Append(BytesOf(Units(1, static_cast<WCHAR>(number))));
        return plain.Terminate();
    case 4:
        buffer = wide.c_str();
        if (!plain.hasBlock)
            return construct(BytesOf(wide));
        plain.Clear();
        return addWide();
    case 5:
        buffer = narrow.c_str();
        if (!plain.hasBlock && !isWide<Buffer>)
            return construct(BytesOf(narrow));
        plain.Clear();
        return addNarrow();
    case 6:
        buffer.SetLength();
        plain.length = plain.hasBlock ? plain.Measure(0, unitSize) : 0;
        return;
    case 7:
        buffer.Adjust();
        plain.length += plain.length != 0 ? plain.Measure(plain.length, unitSize) : 0;
        return;
    default:
        buffer.AddString(static_cast<WCHAR const *>(nullptr), number);
        return plain.Terminate();
    }
}

/// A string that lends its storage has the buffer's content afterwards.
template <class Buffer, class Text, class Content>
void CheckAttachment(Content const & text, unsigned number)
{
    int const length = static_cast<int>(number % 40) - 1;
    Text string(text.data(), static_cast<int>(text.size()));
    Text const copy = string;
    std::size_t const room = length < 0 ? text.size() : static_cast<std::size_t>(length);
    Content expected = text.substr(0, room);
    {
        Buffer buffer(string, length);
        KR_LAW(buffer.Length() == room);
        std::fill(buffer.Get() + expected.size(), buffer.Get() + room, typename Text::XCHAR('x'));
        expected.resize(room, 'x');
        if (room != 0)
        {
            buffer.Remove();
            if (sizeof(typename Text::XCHAR) > 1)
                buffer.Remove();
            expected.pop_back();
        }
    }
    KR_LAW(string.View() == expected && copy.View() == text);
}

struct Buffers
{
    std::array<Twin<CKrByteBuffer>, 2> bytes;
    std::array<Twin<CKrCharBuffer>, 2> narrow;
    std::array<Twin<CKrWcharBuffer>, 2> wide;

    void Change(FuzzInput & input)
    {
        unsigned const kind = input.Below(5);
        bool const isSecond = input.Flag();
        unsigned const choice = input.Below(18);
        unsigned const number = input.Byte() * (choice % 2 == 0 ? 1 : 41);
        std::string_view const line = input.Line();
        switch (kind)
        {
        case 0:
            return fuzz::Change(bytes[isSecond], bytes[!isSecond], choice, number, line);
        case 1:
            return fuzz::Change(narrow[isSecond], narrow[!isSecond], choice, number, line);
        case 2:
            return fuzz::Change(wide[isSecond], wide[!isSecond], choice, number, line);
        case 3:
            return choice < 12 ? ChangeText(narrow[isSecond], choice, number, line) : Join(isSecond, choice);
        default:
            return choice < 12 ? ChangeText(wide[isSecond], choice, number, line) : Join(isSecond, choice);
        }
    }

    void Check() const
    {
        for (int index : {0, 1})
        {
            bytes[static_cast<std::size_t>(index)].Check();
            narrow[static_cast<std::size_t>(index)].Check();
            wide[static_cast<std::size_t>(index)].Check();
        }
    }

    /// Buffers that are added to themselves double: what follows megabytes would take its time and tell nothing more.
    bool AreSmall() const
    {
        constexpr std::size_t most = 1 << 20;
        auto const isSmall = [](auto const & twin) { return twin.plain.block.size() <= most; };
        return std::ranges::all_of(bytes, isSmall) && std::ranges::all_of(narrow, isSmall) &&
               std::ranges::all_of(wide, isSmall);
    }

private:
    /// Operations between buffers of two kinds.
    void Join(bool isSecond, unsigned choice)
    {
        Twin<CKrCharBuffer> & narrowOne = narrow[isSecond];
        Twin<CKrWcharBuffer> & wideOne = wide[isSecond];
        switch (choice % 3)
        {
        case 0:
            narrowOne.buffer.AddString(wideOne.buffer);
            narrowOne.plain.Append(wideOne.plain.Content().substr(0, wideOne.plain.length / 2));
            return narrowOne.plain.Terminate();
        case 1:
            narrowOne.buffer.AddString(narrow[!isSecond].buffer);
            narrowOne.plain.Append(narrow[!isSecond].plain.Content());
            return narrowOne.plain.Terminate();
        default:
            wideOne.buffer.AddString(wide[!isSecond].buffer);
            return wideOne.plain.Append(wide[!isSecond].plain.Content());
        }
    }
};

} // namespace

void CheckLaws(FuzzInput input)
{
    unsigned const number = input.Byte();
    std::string const text(input.Line());
    CheckAttachment<CKrBufferCStringA, CStringA>(text, number);
    CheckAttachment<CKrBufferCStringW, CString>(FuzzInput::UnitsOf(text), number);

    Buffers buffers;
    while (!input.IsAtEnd() && buffers.AreSmall())
    {
        buffers.Change(input);
        buffers.Check();
    }
}

} // namespace kr::fuzz
