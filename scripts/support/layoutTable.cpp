// Prints the layout of every record of the host interface, each byte with what it holds in a new record.
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "jobs/recordLayout.h"

namespace {

constexpr std::string_view head =
    "# Offset, size, field and default. Bytes in hex, as new records hold them; \"00*7\": seven times; \"..\": left "
    "as\n"
    "# the memory was. \"-\" stands for what is no field of the record's own: its base record, and reserved bytes.\n"
    "# Written by: build/release/bin/layoutTable >tests/jobs/recordLayout.golden\n";

/// The bytes of a new record, each as a word.
std::vector<std::string> wordsOfFresh(const vxJ::_recordLayout& record) {
    std::vector<unsigned char> zeros(record.fresh.wholeSize, 0x00);
    std::vector<unsigned char> ones(record.fresh.wholeSize, 0xFF);
    record.fresh.construct(zeros.data());
    record.fresh.construct(ones.data());
    std::vector<std::string> words;
    for (std::size_t i = record.fresh.offset; i < record.fresh.offset + record.size; ++i) {
        char hex[3];
        std::snprintf(hex, sizeof hex, "%02x", zeros[i]);
        words.emplace_back(zeros[i] == ones[i] ? hex : "..");
    }
    return words;
}

void printRow(const std::vector<std::string>& words, std::size_t offset, std::size_t size, std::string_view name) {
    std::string text;
    const auto end = words.begin() + static_cast<std::ptrdiff_t>(offset + size);
    for (auto at = end - static_cast<std::ptrdiff_t>(size); at != end;) {
        const auto next = std::find_if(at, end, [&](const std::string& word) { return word != *at; });
        text.append(1, ' ').append(*at);
        if (next - at > 1) text.append(1, '*').append(std::to_string(next - at));
        at = next;
    }
    std::printf("%7zu %6zu  %-21.*s%s\n", offset, size, static_cast<int>(name.size()), name.data(), text.c_str());
}

void printRecord(const vxJ::_recordLayout& record) {
    std::printf("\n%.*s %zu bytes, alignment %zu\n", static_cast<int>(record.name.size()), record.name.data(),
                record.size, record.alignment);
    const std::vector<std::string> words = wordsOfFresh(record);
    std::size_t end = 0;
    for (const vxJ::_fieldLayout& field : record.fields) {
        if (field.offset > end) printRow(words, end, field.offset - end, "-");
        printRow(words, field.offset, field.size, field.name);
        end = field.offset + field.size;
    }
    if (record.size > end) printRow(words, end, record.size - end, "-");
}

}  // namespace

int main() {
    std::fputs(head.data(), stdout);
    for (const vxJ::_recordLayout& record : vxJ::recordLayouts()) printRecord(record);
    return 0;
}
