#include "regdef/RegisterColumns.h"

#include <cstddef>
#include <utility>

namespace macroengine {

namespace {

template <class Value>
using Entry = std::pair<std::string_view, Value>;

constexpr Entry<RegisterColumn> kColumns[] = {
    {"REGISTER_NAME", RegisterColumn::Name},
    {"ADDRESS_2WIRE", RegisterColumn::Address2Wire},
    {"ADDRESS_3WIRE", RegisterColumn::Address3Wire},
    {"LSB", RegisterColumn::Lsb},
    {"LENGTH", RegisterColumn::Length},
    {"RW", RegisterColumn::Access},
    {"DESCRIPTION", RegisterColumn::Description},
    {"FUNCTION", RegisterColumn::Function},
};

constexpr Entry<RegisterSection> kSections[] = {
    {"ENDIAN", RegisterSection::Endian},
    {"REGISTER", RegisterSection::Register},
};

constexpr Entry<Access> kAccessKeywords[] = {
    {"NC", Access::NotConnected},
    {"RO", Access::ReadOnly},
    {"WO", Access::WriteOnly},
    {"RW", Access::ReadWrite},
};

template <class Value, std::size_t size>
std::optional<Value> Find(const Entry<Value> (&table)[size], std::string_view text) {
    for (const auto& [keyword, value] : table) {
        if (keyword == text) return value;
    }
    return std::nullopt;
}

}  // namespace

std::optional<RegisterColumn> ColumnOfKeyword(std::string_view keyword) {
    return Find(kColumns, keyword);
}

std::optional<RegisterSection> SectionOfName(std::string_view name) {
    return Find(kSections, name);
}

std::optional<Access> AccessOfKeyword(std::string_view keyword) {
    return Find(kAccessKeywords, keyword);
}

}  // namespace macroengine
