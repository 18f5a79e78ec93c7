// How the program prints JSON: every --json.
#pragma once

#include <nlohmann/json.hpp>
#include <ostream>

namespace chartproject {

/// Prints a document, two blanks a level. Names that are not valid UTF-8 do not stop the output.
inline void PrintDocument(std::ostream& out, const nlohmann::ordered_json& document) {
  constexpr int kIndent = 2;
  out << document.dump(kIndent, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
}

}  // namespace chartproject
