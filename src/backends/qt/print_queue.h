// What the print server says of a queue, which Qt does not ask.
#pragma once

#include <string>

namespace chartproject {

/// Why a queue takes no documents (it rejects them, or it is not there); empty when it takes them.
[[nodiscard]] std::string QueueRefusal(const std::string& queueName);

}  // namespace chartproject
