#include "Apps/kvcolor/printing/Printing.h"
#include "SV/qt/QtBackend.h"

namespace kvcolor {

namespace {

/// The arguments that Qt is started with. Pages need no screen.
struct Printing {
    char program[8] = "kvcolor";
    char option[10] = "-platform";
    char platform[10] = "offscreen";
    char* values[4] = {program, option, platform, nullptr};
    int count = 3;
    sv::qt::QtBackend backend{count, values};
};

}  // namespace

}  // namespace kvcolor

extern "C" void KvcolorBeginPrinting(std::shared_ptr<void>& printing) {
    printing = std::make_shared<kvcolor::Printing>();
}
