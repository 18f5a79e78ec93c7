// The address of a database as the user writes it, checked and completed.
#pragma once

#include <string>

namespace chartproject {

struct PostAddress {
  std::string url;     ///< whole, with its query
  std::string server;  ///< for messages: without the query
  bool encrypted = false;
};

/// "http://host:8428" gets the path "/write"; a path that is given stays, as for "/api/v2/write?org=...&bucket=...".
/// The query gets precision=ms and, with a database, db=NAME.
/// Throws RunTimeError 5: another protocol than http and https, no host, a name or password in the address, another
/// precision than milliseconds.
[[nodiscard]] PostAddress MakePostAddress(const std::string& text, const std::string& database);

}  // namespace chartproject
