// A place for an object that is there before the object is and after it has gone.
#pragma once

#include <memory>
#include <utility>

namespace travo {

// The owner's objects refer to one another, while their order of creation and of release is fixed and
// follows no order of dependence. A slot gives the reference first and the object at its own time.
template <typename Object>
class Slot {
public:
    Slot() {}
    ~Slot() { Release(); }
    Slot(const Slot&) = delete;
    Slot& operator=(const Slot&) = delete;

    template <typename... Arguments>
    void Create(Arguments&&... arguments) {
        Release();
        std::construct_at(std::addressof(object_), std::forward<Arguments>(arguments)...);
        alive_ = true;
    }

    void Release() {
        if (alive_) {
            alive_ = false;
            std::destroy_at(std::addressof(object_));
        }
    }

    bool Alive() const { return alive_; }

    // The object's place. A reference may be kept at any time; it may be used while the object lives.
    Object& Place() { return object_; }

    Object& operator*() { return object_; }
    Object* operator->() { return std::addressof(object_); }
    const Object* operator->() const { return std::addressof(object_); }

private:
    union {
        Object object_;
    };
    bool alive_ = false;
};

}  // namespace travo
