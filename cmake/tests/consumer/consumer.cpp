#include <KVUtils/KVUtils.h>
#include <cstdio>

#if __has_include(<QString>) || __has_include(<QtCore/QString>)
#error "Qt is on the include path of a program that only computes colour"
#endif

int main() {
    kv::Spectrum const grey(0.2F, kv::PhysicalConditions());
    kv::LABVector const lab(grey);
    std::printf("%s under %s\n", sv::String(lab).GetStr(),
                sv::String(static_cast<kv::MeasuringCondition const&>(lab)).GetStr());
    return lab[0] > 51 && lab[0] < 53 ? 0 : 1;
}
