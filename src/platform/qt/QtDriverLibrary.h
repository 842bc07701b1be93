// The manipulator driver as a shared library in the program's folder.
#pragma once

#include <QString>
#include <memory>

#include "platform/ManipulatorDriver.h"

class QLibrary;

namespace travo::platform::qt {

// The library has C linkage and bears the system's own name for a library "ManipulatorDriver":
// libManipulatorDriver.so, ManipulatorDriver.dll. Its five functions are told in docs/wire-formats.md.
// One of these for each folder: Qt 6.4 unloads a file at the first call to unload it, whatever other
// QLibrary has loaded it as well.
class QtDriverLibrary : public ManipulatorDriverLibrary {
public:
    // The folder that holds the library, as a full path; nothing is searched elsewhere.
    explicit QtDriverLibrary(QString folder);

    // Loads the library anew; the object unloads it when it is released. Objects that are alive at the
    // same time share the loaded file, and the last of them unloads it. None where the file is missing,
    // is no library, needs a symbol that nobody has, or lacks one of the five functions.
    std::unique_ptr<ManipulatorDriver> Create() override;

private:
    QString folder_;
    std::weak_ptr<QLibrary> loaded_;
};

}  // namespace travo::platform::qt
