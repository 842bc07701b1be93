#include "drivers/check/Library.h"

#include <dlfcn.h>

#include <algorithm>
#include <chrono>
#include <cstring>

namespace check {

namespace {

constexpr std::int32_t Guard = 0x5A5A5A5A;

// A value with guards on both sides: a library that takes it for a wider type writes over one.
struct Guarded {
    std::array<std::int32_t, 5> words{Guard, Guard, 0, Guard, Guard};

    std::int32_t* Value() { return &words[2]; }
    bool IsIntact() const {
        return words[0] == Guard && words[1] == Guard && words[3] == Guard && words[4] == Guard;
    }
};

void SetText(Answer& answer, const char* text) {
    std::strncpy(answer.text.data(), text, answer.text.size() - 1);
}

template <typename Function>
Function Find(void* handle, const char* name) {
    return reinterpret_cast<Function>(dlsym(handle, name));
}

}  // namespace

std::int64_t Now() {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

Answer Library::Load(const std::string& path) {
    Answer answer;
    answer.begun = Now();
    handle_ = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    answer.ended = Now();
    if (handle_ == nullptr) {
        const char* reason = dlerror();
        answer.status = -1;
        SetText(answer, reason == nullptr ? "no reason given" : reason);
        return answer;
    }
    getPosition_ = Find<GetPosition>(handle_, FunctionNames[0]);
    moveTo_ = Find<MoveTo>(handle_, FunctionNames[1]);
    select_ = Find<Select>(handle_, FunctionNames[2]);
    getCount_ = Find<WithValue>(handle_, FunctionNames[3]);
    reconnect_ = Find<Reconnect>(handle_, FunctionNames[4]);
    stop_ = Find<Stop>(handle_, "DriverStop");
    for (std::size_t place = 0; place < FunctionNames.size(); ++place) {
        answer.missingFunctions |= dlsym(handle_, FunctionNames[place]) == nullptr ? 1U << place : 0U;
    }
    const auto* settling = Find<const std::int32_t*>(handle_, "DriverSettlingMilliseconds");
    answer.hasStop = stop_ != nullptr;
    answer.hasSettling = settling != nullptr;
    answer.settling = settling == nullptr ? 0 : *settling;
    return answer;
}

Answer Library::Call(const Request& request) {
    Answer answer;
    std::array<Guarded, 4> values;
    const auto& given = request.arguments;
    const auto run = [&] {
        switch (request.wish) {
            case Wish::GetPosition:
                return getPosition_(values[0].Value(), values[1].Value(), values[2].Value(),
                                    values[3].Value());
            case Wish::MoveTo:
                return moveTo_(given[0], given[1], given[2]);
            case Wish::Select:
                return select_(given[0], values[0].Value());
            case Wish::GetCount:
                return getCount_(values[0].Value());
            case Wish::Reconnect:
                return reconnect_();
            case Wish::Stop:
                return stop_(given[0]);
            default:
                return std::int32_t{-1};
        }
    };
    answer.begun = Now();
    answer.status = run();
    answer.ended = Now();
    for (std::size_t place = 0; place < values.size(); ++place) {
        answer.values[place] = *values[place].Value();
    }
    answer.wroteBeside =
        !std::all_of(values.begin(), values.end(), [](const Guarded& value) { return value.IsIntact(); });
    return answer;
}

Answer Library::Unload() {
    Answer answer;
    answer.begun = Now();
    answer.status = handle_ == nullptr ? 0 : dlclose(handle_);
    answer.ended = Now();
    handle_ = nullptr;
    return answer;
}

}  // namespace check
