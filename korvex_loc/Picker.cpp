#include "korvex_loc/Picker.h"

#include "korvex_loc/F_Picker.h"

namespace kvx::loc {

std::string Picker::PickValue(const KvxVar& kvxvar, std::string_view select, std::string_view title,
                              std::string_view current, std::string_view mask)
{
    return F_Picker().Run(kvxvar, select, title, current, mask);
}

}  // namespace kvx::loc
