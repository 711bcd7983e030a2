#include "store/PackedRow.h"

#include <array>
#include <cstring>
#include <vector>

namespace suisui {

namespace {

constexpr int columnsOnStack = 32; // a wider row is copied through the heap

} // namespace

PackedRow::PackedRow(int columns)
{
    assign(std::vector<std::string_view>(static_cast<std::size_t>(columns)));
}

PackedRow::PackedRow(std::span<const std::string_view> texts)
{
    assign(texts);
}

const std::uint32_t* PackedRow::ends() const
{
    return reinterpret_cast<const std::uint32_t*>(m_block.get());
}

std::string_view PackedRow::text(int column) const
{
    if (column < 0 || column >= m_columns)
        return {};
    const std::uint32_t* end = ends();
    const std::uint32_t begin = column == 0 ? 0 : end[column - 1];
    const char* bytes = m_block.get() + static_cast<std::size_t>(m_columns) * sizeof(std::uint32_t);
    return {bytes + begin, end[column] - begin};
}

void PackedRow::setText(int column, std::string_view value)
{
    std::array<std::string_view, columnsOnStack> onStack;
    std::vector<std::string_view> onHeap;
    std::span<std::string_view> texts(onStack);
    if (m_columns > columnsOnStack) {
        onHeap.resize(static_cast<std::size_t>(m_columns));
        texts = onHeap;
    }
    texts = texts.first(static_cast<std::size_t>(m_columns));
    for (int i = 0; i < m_columns; ++i)
        texts[static_cast<std::size_t>(i)] = i == column ? value : text(i);
    assign(texts);
}

void PackedRow::assign(std::span<const std::string_view> texts)
{
    const std::size_t table = texts.size() * sizeof(std::uint32_t);
    std::size_t bytes = table;
    for (const std::string_view text : texts)
        bytes += text.size();
    const auto block = std::make_shared_for_overwrite<char[]>(bytes);
    auto* end = reinterpret_cast<std::uint32_t*>(block.get());
    char* to = block.get() + table;
    std::uint32_t offset = 0;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (!texts[i].empty())
            std::memcpy(to + offset, texts[i].data(), texts[i].size());
        offset += static_cast<std::uint32_t>(texts[i].size());
        end[i] = offset;
    }
    m_block = block; // only now: a text may have pointed into the old block
    m_columns = static_cast<int>(texts.size());
}

bool operator==(const PackedRow& a, const PackedRow& b)
{
    if (a.m_columns != b.m_columns)
        return false;
    for (int i = 0; i < a.m_columns; ++i)
        if (a.text(i) != b.text(i))
            return false;
    return true;
}

} // namespace suisui
