#include "Apps/suite/ServerProbe.h"

#include "KVUtils/Source/messaging/DDE.h"

namespace suite {

namespace {

platform::HDDEDATA AcceptNothing(unsigned, unsigned, platform::HCONV, platform::HSZ, platform::HSZ,
                                 platform::HDDEDATA, std::uintptr_t, std::uintptr_t) {
    return nullptr;
}

}  // namespace

platform::HCONV Converse(std::uint32_t instance, std::string const& name) {
    auto const handle = [instance](char const* text) {
        return platform::DdeCreateStringHandleA(instance, text, platform::CP_WINANSI);
    };
    platform::HSZ const service = handle(kv::DDE::ServiceName);
    platform::HSZ const topic = handle(name.c_str());
    platform::HCONV const conversation = platform::DdeConnect(instance, service, topic, nullptr);
    platform::DdeFreeStringHandle(instance, topic);
    platform::DdeFreeStringHandle(instance, service);
    return conversation;
}

ServerProbe::ServerProbe() noexcept {
    if (platform::DdeInitializeA(&instance_, &AcceptNothing, 0, 0) != platform::DMLERR_NO_ERROR)
        instance_ = 0;
}

ServerProbe::~ServerProbe() {
    if (instance_ != 0) platform::DdeUninitialize(instance_);
}

bool ServerProbe::IsReachable(std::string const& name) const {
    if (instance_ == 0) return false;
    platform::HCONV const conversation = Converse(instance_, name);
    if (conversation == nullptr) return false;
    platform::DdeDisconnect(conversation);
    return true;
}

}  // namespace suite
