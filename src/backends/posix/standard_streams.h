// The three standard streams, which may be closed or lose their reader.
#pragma once

namespace chartproject {

/// Called first in a program. A reader of the output that goes away, and a file-size limit, become errors of the write
/// instead of the program's end. A standard stream that is closed is opened on nothing, so that no chart file comes to
/// have its number and the messages in it.
void GuardStandardStreams();

}  // namespace chartproject
