// Reading entries in display order. They lie anywhere in memory, and each would be waited for: the processor is told
// ahead which ones come next. Part of MyLV.
#pragma once

#include "catalogue/table/MyLVStockage.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace stockage {

/// To be called for each position (from 0) of a walk through `ordre`: announces some that follow. The others are where
/// the table keeps its entries, by rank.
///
/// Always inline: GCC takes a function that does nothing else for one without effects, and leaves its calls out.
[[gnu::always_inline]] inline void Annoncer(size_t position, const std::vector<uint32_t>& ordre,
                                            const std::vector<uint64_t>& refs, const std::vector<uint32_t>& longueurs,
                                            const std::vector<uint8_t>& drapeaux, const char* octets)
{
    // Where the slice lies is fetched first, and the slice itself by the time that this is known.
    constexpr size_t loin = 24;
    constexpr size_t pres = 12;
    constexpr size_t ligneDeCache = 64;
    if (position + loin >= ordre.size())
        return;
    const uint32_t lointain = ordre[position + loin];
    __builtin_prefetch(&refs[lointain]);
    __builtin_prefetch(&longueurs[lointain]);
    __builtin_prefetch(&drapeaux[lointain]);
    const uint32_t proche = ordre[position + pres];
    const char* debut = drapeaux[proche] & Drapeau::EnBloc ? reinterpret_cast<const char*>(refs[proche]) // an address
                                                           : octets + refs[proche];
    __builtin_prefetch(debut);
    __builtin_prefetch(debut + ligneDeCache);
}

} // namespace stockage
