// The user's own program folder, which the launcher makes from the package's files and keeps up to date.
#pragma once

#include <QString>

namespace travo::launcher {

// What has become of the folder.
enum class Renewal {
    Unchanged,  // it was of the package's version already
    Made,       // there was none
    Renewed,    // its programs were of another version
    InUse       // of another version, but TRAVO is running in it: everything stays for now
};

// Copies the programs of the package into the user's folder and links the skin, unless they are there in the
// package's version. Everything else there (settings and their copies, links of ports, pictures, the driver
// library) is the user's own and never touched; of the package's files the driver library alone is not taken,
// since it belongs to the simulated instruments. The folder is made for its user alone. Each file takes its
// name when it is whole, and the version is noted last, so that a kill at any moment leaves a folder that the
// next call completes.
//
// `version` tells one state of the package from another. Raises std::runtime_error with a sentence for the
// user.
Renewal RenewProgramFolder(const QString& package, const QString& folder, const QString& version);

// The version of the package together with size and time of its main program: a package that was built anew
// under the same number counts as another.
QString VersionOf(const QString& package, const QString& number);

}  // namespace travo::launcher
