// The name under which the control program finds a port: a link in the folder "ports" of its program folder.
#pragma once

#include <string>

namespace workbench {

class PortLink {
public:
    // The link "ports/com<number>" in that folder; it is not made yet.
    PortLink(const std::string& programFolder, int number);
    // Removes it.
    ~PortLink() { Remove(); }
    PortLink(const PortLink&) = delete;
    PortLink& operator=(const PortLink&) = delete;

    const std::string& Path() const { return path_; }
    // Makes the link, and the folder where it is missing; an older link is replaced in one step.
    // std::runtime_error where that cannot be done, or where something stands there that is no link.
    void LeadTo(const std::string& device);
    // Removes the link if it still is the one that was made here.
    void Remove();

private:
    std::string folder_;
    std::string path_;
    std::string device_;
};

}  // namespace workbench
