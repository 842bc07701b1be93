#include "workbench/doors/PortLink.h"

#include <unistd.h>

#include <filesystem>
#include <stdexcept>
#include <system_error>

namespace workbench {

namespace fs = std::filesystem;

PortLink::PortLink(const std::string& programFolder, int number)
    : folder_(programFolder + "/ports"), path_(folder_ + "/com" + std::to_string(number)) {}

void PortLink::LeadTo(const std::string& device) {
    const std::string fresh = path_ + ".workbench" + std::to_string(getpid());
    std::error_code failure;
    fs::create_directory(folder_, failure);
    const fs::file_status there = fs::symlink_status(path_, failure);
    if (fs::exists(there) && !fs::is_symlink(there)) {
        throw std::runtime_error("this is no link, and stays: " + path_);
    }
    failure.clear();
    fs::create_symlink(device, fresh, failure);
    if (!failure) {
        fs::rename(fresh, path_, failure);
    }
    if (failure) {
        std::error_code ignored;
        fs::remove(fresh, ignored);
        throw std::runtime_error("the link cannot be made: " + path_ + ": " + failure.message());
    }
    device_ = device;
}

void PortLink::Remove() {
    std::error_code failure;
    if (!device_.empty() && fs::read_symlink(path_, failure) == device_ && !failure) {
        fs::remove(path_, failure);
    }
    device_.clear();
}

}  // namespace workbench
