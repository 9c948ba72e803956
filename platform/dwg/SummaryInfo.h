// Title, author and the like, with properties of the user's own. Texts are bytes of the code page in AC1018, UTF-16 in
// all later files.
#pragma once
#include "../db/core/TextCodec.h"
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace KxPlat {

struct SummaryInfo {
    // Title, subject, author, keywords, comments, last saved by, revision, hyperlink base.
    std::wstring texts[8];
    uint32_t times[6] = {};   // editing time, creation, modification: days and milliseconds
    std::vector<std::pair<std::wstring, std::wstring>> properties;

    static constexpr size_t kSavedBy = 5;
};

SummaryInfo ReadSummary(std::string_view section, bool isWide, const TextCodec& codec);
std::string WriteSummary(const SummaryInfo& summary);   // wide

}   // namespace KxPlat
