// A document sent to a queue that rejects it vanishes without an error: so the queue is asked before.
#include "backends/qt/print_queue.h"

#include <cups/cups.h>

#include <string_view>

namespace chartproject {

std::string QueueRefusal(const std::string& queueName) {
  cups_dest_t* const queue = cupsGetNamedDest(CUPS_HTTP_DEFAULT, queueName.c_str(), nullptr);
  if (queue == nullptr) return std::string("the print server does not know it: ") + cupsLastErrorString();
  const char* const accepting = cupsGetOption("printer-is-accepting-jobs", queue->num_options, queue->options);
  const bool accepts = accepting == nullptr || std::string_view(accepting) == "true";
  const char* const reasons = cupsGetOption("printer-state-reasons", queue->num_options, queue->options);
  std::string refusal;
  if (!accepts) refusal = std::string("it is not accepting documents (") + (reasons == nullptr ? "" : reasons) + ")";
  cupsFreeDests(1, queue);
  return refusal;
}

}  // namespace chartproject
