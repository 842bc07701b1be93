// Refuses a second running program of the same user.
#pragma once

namespace travo::platform {

class SingleInstance {
public:
    virtual ~SingleInstance() = default;
    // True when this process is, and from now on stays, the only one. A killed process leaves no claim.
    virtual bool Claim() = 0;
};

}  // namespace travo::platform
