#include "platform/qt/QtDriverLibrary.h"

#include <QDir>
#include <QLibrary>
#include <string>
#include <utility>

namespace travo::platform::qt {

namespace {

// Every function answers with a status, negative for failure.
extern "C" {
using GetPositionFunction = std::int32_t(std::int32_t* number, std::int32_t* x, std::int32_t* y,
                                         std::int32_t* z);
using MoveToFunction = std::int32_t(std::int32_t x, std::int32_t y, std::int32_t z);
using SelectFunction = std::int32_t(std::int32_t number, std::int32_t* answer);
using GetCountFunction = std::int32_t(std::int32_t* count);
using ReconnectFunction = std::int32_t();
}

// A library keeps its file loaded beyond its own end unless it is told otherwise.
void UnloadAndDelete(QLibrary* library) {
    library->unload();
    delete library;
}

std::shared_ptr<QLibrary> Load(const QString& path) {
    const std::shared_ptr<QLibrary> library(new QLibrary(path), UnloadAndDelete);
    // A symbol that nobody has is found out here, and not in the middle of a move.
    library->setLoadHints(QLibrary::ResolveAllSymbolsHint);
    return library->load() ? library : nullptr;
}

struct Functions {
    GetPositionFunction* getPosition = nullptr;
    MoveToFunction* moveTo = nullptr;
    SelectFunction* select = nullptr;
    GetCountFunction* getCount = nullptr;
    ReconnectFunction* reconnect = nullptr;
};

// Finds the function; false where the library lacks it.
template <typename Function>
bool Resolve(QLibrary& library, const char* name, Function*& function) {
    function = reinterpret_cast<Function*>(library.resolve(name));
    return function != nullptr;
}

bool ResolveAll(QLibrary& library, Functions& functions) {
    return Resolve(library, "DriverGetPosition", functions.getPosition) &&
           Resolve(library, "DriverMoveTo", functions.moveTo) &&
           Resolve(library, "DriverSelect", functions.select) &&
           Resolve(library, "DriverGetCount", functions.getCount) &&
           Resolve(library, "DriverReconnect", functions.reconnect);
}

// Calls a function of the library. What a foreign library throws is no object of ours and ends here.
template <typename Function, typename... Arguments>
void Ask(const char* operation, Function* function, Arguments... arguments) {
    std::int32_t status = 0;
    try {
        status = function(arguments...);
    } catch (...) {
        throw DriverFailure(std::string(operation) + " failed and threw");
    }
    if (status < 0) {
        throw DriverFailure(std::string(operation) + " failed with status " + std::to_string(status));
    }
}

class LibraryDriver : public ManipulatorDriver {
public:
    LibraryDriver(std::shared_ptr<QLibrary> library, const Functions& functions)
        : library_(std::move(library)), functions_(functions) {}

    Position DriverGetPosition() override {
        Position position;
        auto& [x, y, z] = position.xyz;
        Ask("DriverGetPosition", functions_.getPosition, &position.number, &x, &y, &z);
        return position;
    }
    void DriverMoveTo(std::int32_t x, std::int32_t y, std::int32_t z) override {
        Ask("DriverMoveTo", functions_.moveTo, x, y, z);
    }
    std::int32_t DriverSelect(std::int32_t number) override {
        std::int32_t answer = 0;
        Ask("DriverSelect", functions_.select, number, &answer);
        return answer;
    }
    std::int32_t DriverGetCount() override {
        std::int32_t count = 0;
        Ask("DriverGetCount", functions_.getCount, &count);
        return count;
    }
    void DriverReconnect() override { Ask("DriverReconnect", functions_.reconnect); }

private:
    std::shared_ptr<QLibrary> library_;
    Functions functions_;
};

}  // namespace

QtDriverLibrary::QtDriverLibrary(QString folder) : folder_(std::move(folder)) {}

std::unique_ptr<ManipulatorDriver> QtDriverLibrary::Create() {
    std::shared_ptr<QLibrary> library = loaded_.lock();
    if (!library) {
        library = Load(QDir(folder_).absoluteFilePath(QStringLiteral("ManipulatorDriver")));
        loaded_ = library;
    }
    Functions functions;
    if (!library || !ResolveAll(*library, functions)) {
        return nullptr;
    }
    return std::make_unique<LibraryDriver>(std::move(library), functions);
}

}  // namespace travo::platform::qt
