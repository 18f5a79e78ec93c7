// The port that frames really go over: a serial device or a TCP connection, by way of libmodbus.
#pragma once

#include <functional>
#include <memory>

#include "links/serial/line_port.h"
#include "links/serial/line_trace.h"
#include "links/serial/link_url.h"

namespace chartproject {

/// A serial device is locked against other programs while it is open. After a request that failed, Flush of a network
/// port connects anew, because what was asked for over the old connection can then never arrive.
/// @param stopping asked often while the port waits: true when it is to return at once
/// @param trace may be empty
[[nodiscard]] std::unique_ptr<LinePort> MakeModbusPort(const LineSettings& settings, std::function<bool()> stopping,
                                                       std::shared_ptr<LineTrace> trace);

}  // namespace chartproject
