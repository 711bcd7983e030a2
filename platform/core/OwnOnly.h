// What every program of the shop does before anything else, and who may read the shop's folder. Its
// databases, copies, exports and settings hold the addresses of customers, so they are for their owner alone,
// whatever the session's umask says.
#pragma once

#include <string>

namespace suisui {

/// First thing in main(). Files and folders are made without rights for others, and a file that may not grow
/// any further (a quota, a limit of the session) makes a write fail, which is reported, instead of ending the
/// program.
void beginProgram();

/// Takes the rights of others off the shop's folder \a base: its folders of data and the files in them, and
/// \a base itself unless the programs are installed in it. What belongs to another user stays as it is, and
/// so does a folder that holds no shop.
void makeOwnOnly(const std::string& base);

} // namespace suisui
