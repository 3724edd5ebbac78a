#pragma once

#include <string_view>
#include <vector>

namespace kv {

/// The batches of a script in order: what stands between the lines that hold only GO, in any letter case and with
/// blanks around it. Batches of blanks are left out. The views point into `guion`.
std::vector<std::string_view> LotesDe(std::string_view guion);

}  // namespace kv
