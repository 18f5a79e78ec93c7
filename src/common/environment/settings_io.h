// Reading the shared settings from the store and writing them back.
#pragma once

namespace chartproject {

struct Environment;

/// Each reads the keys of one section in order into the environment's settings; a missing key gives its default.
/// Throws RunTimeError 13 for an integer setting whose stored text is not a number, 6 for a number that does not fit.
/// The description names section and key. Keys read before the bad one keep their new value.
void ReadConfSettings(Environment& environment);
void ReadProjectSettings(Environment& environment);
void ReadFolderSettings(Environment& environment);

/// Each writes the keys of one section in order, integers as decimal text. A key that another program changed since it
/// was read, and this one did not, keeps what the other stored. Throws RunTimeError when the store cannot be read or
/// written.
void SaveConfSettings(Environment& environment);
void SaveProjectSettings(Environment& environment);
void SaveFolderSettings(Environment& environment);

}  // namespace chartproject
