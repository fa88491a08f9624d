// A buffer by its description: a block that is a vector, and every new block a zeroed one.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace kr::fuzz
{

using Bytes = std::basic_string<unsigned char>;

class PlainBuffer
{
public:
    explicit PlainBuffer(std::size_t trailingBytes) : trailing(trailingBytes) {}

    void SetBuffer(Bytes const & data, std::size_t atLeast)
    {
        block.assign(std::max(data.size(), atLeast), 0);
        std::ranges::copy(data, block.begin());
        length = data.size();
        hasBlock = true;
    }

    void Alloc(std::size_t count)
    {
        std::size_t const need = count + trailing, size = block.size();
        std::size_t const granule = size <= 256 ? 256 : size <= 1024 ? 1024 : size <= 4096 ? 4096 : 8192;
        if (need > size)
            AllocExact((need + granule - 1) / granule * granule);
    }

    void AllocExact(std::size_t size)
    {
        if (size <= block.size())
            return;
        std::vector<unsigned char> larger(size, 0);
        std::copy_n(block.begin(), length, larger.begin());
        block = std::move(larger);
        hasBlock = true;
    }

    void Assign(std::size_t count, unsigned char fill)
    {
        AllocExact(count + trailing);
        Clear();
        length = count;
        std::fill_n(block.begin(), count, fill);
    }

    void Attach(std::vector<unsigned char> other, std::size_t contentLength)
    {
        block = std::move(other);
        length = contentLength;
        hasBlock = true;
    }

    void Clear()
    {
        length = 0;
        std::ranges::fill(block, 0);
    }

    void Free()
    {
        block.clear();
        length = 0;
        hasBlock = false;
    }

    /// What an assignment of `source` does.
    void Take(PlainBuffer & source)
    {
        if (this == &source)
            return;
        if (source.isReleased)
        {
            block.swap(source.block);
            length = source.length;
            hasBlock = source.hasBlock;
            source.Free();
        }
        else
            Clone(source);
    }

    void Clone(PlainBuffer const & source)
    {
        if (source.block.empty())
            return Free();
        Alloc(source.length);
        std::copy_n(source.block.begin(), source.length, block.begin());
        length = source.length;
    }

    void Append(Bytes const & data)
    {
        if (data.empty())
            return;
        Alloc(length + data.size());
        std::ranges::copy(data, block.begin() + static_cast<std::ptrdiff_t>(length));
        length += data.size();
    }

    /// Only the low byte of each character is written.
    void AppendWidened(Bytes const & data)
    {
        Alloc(length + 2 * data.size());
        for (std::size_t index = 0; index < data.size(); ++index)
            block[length + 2 * index] = data[index];
        length += 2 * data.size();
        block[length] = 0;
    }

    void Terminate()
    {
        if (!hasBlock)
            return;
        Alloc(length);
        block[length] = 0;
    }

    /// The bytes up to a character of zeros, or to the end of the block.
    std::size_t Measure(std::size_t start, std::size_t unitSize) const
    {
        std::size_t end = start;
        auto const isZero = [](unsigned char byte) { return byte == 0; };
        while (end + unitSize <= block.size() && !std::all_of(&block[end], &block[end] + unitSize, isZero))
            end += unitSize;
        return end - start;
    }

    Bytes Content() const { return Bytes(block.begin(), block.begin() + static_cast<std::ptrdiff_t>(length)); }

    std::size_t trailing;
    std::vector<unsigned char> block; ///< as long as the size
    std::size_t length = 0;
    bool hasBlock = false; ///< one of no bytes is one too
    bool isReleased = false;
};

} // namespace kr::fuzz
