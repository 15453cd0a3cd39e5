// The processing-method records as JSON (nlohmann::ordered_json keeps field order).
#pragma once

#include <nlohmann/json.hpp>

#include "vglobal/vglobal.h"

namespace arvenis_settings {

using Json = nlohmann::ordered_json;

Json ToJson(const CComponentIO& component);
Json ToJson(const CProcMethod& method);

}  // namespace arvenis_settings
