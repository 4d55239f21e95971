// Counts what is allocated while vectors are made: they are made in the inner loops of the applications.
#include "KVUtils/Tests/TestSupport.h"

#include <atomic>
#include <cstdlib>
#include <new>

static std::atomic<long> allocations = 0;

// Replaced for the whole program, the library's shared object included. The array forms come here too.
void* operator new(std::size_t size) {
    ++allocations;
    if (void* const memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace kv::test {

TEST(Allocation, VectorsAndMetamerismTakeNone) {
    sv::String text("a text of more than the sixteen bytes that a string holds in itself");
    long before = allocations;
    text.PadLeft(1000);
    // A library that is linked with an allocator of its own cannot be watched from here.
    if (allocations == before) GTEST_SKIP() << "the library's allocations are not seen";

    Spectrum const spectrum = Random(9).Reflectances(0, 1);
    MetamerieRechner rechner(spectrum, IllumClass(IllumType::D65), IllumClass(IllumType::A),
                             ObserverClass(ObserverType::TenDegrees));
    before = allocations;
    float sink = XYZVector(spectrum)[0] + xyYVector(spectrum)[0] + DensityVector(spectrum, true)[0];
    LABVector const lab(spectrum);
    LCHmgVector const mg(lab);
    sink += LChVector(lab)[0] + LABmgVector(mg)[0] + LChVector(mg)[0] + dLCHmgVector(lab, lab)[0];
    sink += rechner.RechneMetamerie(spectrum).GetIndex();
    long const taken = allocations - before;
    EXPECT_EQ(taken, 0);
    EXPECT_GT(sink, 0.0F);
}

}  // namespace kv::test
