// The standard buttons of the suite and the bitmaps of the library.
// Written by Tools/tables.py from the printed table; not edited by hand.
#pragma once

#include <array>
#include <string_view>

namespace kv::detail {

// clang-format off
/// A button that the bar knows by a single bit: its style, the number of its text, its bitmap.
struct StandardButton {
    long id;
    unsigned short style;
    unsigned short textIndex;
    unsigned short bitmapRecord;
    std::string_view bitmapFile;
};

inline constexpr std::array<StandardButton, 25> StandardButtonTable = {{
    {      0x1, 0x110,  0, 2237, "icoclose.bmp"},
    {      0x2, 0x110,  2, 2239, "icoopen.bmp"},
    {      0x4,  0x10,  3, 2236, "icoabort.bmp"},
    {      0x8,  0x10,  9, 2245, "icoimprt.bmp"},
    {     0x10,  0x10, 10, 2246, "icoexprt.bmp"},
    {     0x20,  0x10,  8, 2244, "icoprint.bmp"},
    {     0x40,  0x10, 11, 2247, "icodel.bmp"},
    {     0x80,  0x10,  5, 2241, "icoinfo.bmp"},
    {    0x100,  0x10,  6, 2242, "iconeu.bmp"},
    {    0x200,  0x10,  7, 2243, "icoedit.bmp"},
    {    0x400,  0x10,  4, 2240, "icosearc.bmp"},
    {    0x800, 0x110,  1, 2238, "icook.bmp"},
    {   0x1000, 0x110,  1, 2238, "icook.bmp"},
    {   0x2000, 0x110,  2, 2239, "icoopen.bmp"},
    {   0x4000,  0x10, 12, 2248, "icomess.bmp"},
    {   0x8000,  0x10, 13, 2249, "icovind.bmp"},
    {  0x10000,  0x10, 14, 2258, "iconum.bmp"},
    {  0x20000,  0x10, 15, 2250, "icoslall.bmp"},
    {  0x40000,  0x10, 16, 2251, "icosetup.bmp"},
    {  0x80000,  0x10, 17, 2252, "iconext.bmp"},
    { 0x100000,  0x10, 18, 2253, "icorech.bmp"},
    { 0x200000,  0x10, 19, 2253, "icorech.bmp"},
    { 0x400000,  0x10, 20, 2260, "icorstzu.bmp"},
    { 0x800000,  0x10, 22, 2265, "icodb2.bmp"},
    {0x1000000,  0x10, 23, 2269, "icomail.bmp"},
}};

/// A bitmap of the library's resources, by the number of its record.
struct BitmapRecord {
    unsigned short record;
    std::string_view file;
};

/// Ascending by record.
inline constexpr std::array<BitmapRecord, 49> BitmapTable = {{
    {734, "waitvis.bmp"},
    {2222, "icoappen.bmp"},
    {2223, "icowrite.bmp"},
    {2224, "icovisko.bmp"},
    {2225, "icodb.bmp"},
    {2226, "icoshow.bmp"},
    {2227, "icoweiss.bmp"},
    {2228, "icocombi.bmp"},
    {2230, "arrow_l.bmp"},
    {2231, "arrow_r.bmp"},
    {2232, "end_l.bmp"},
    {2233, "end_r.bmp"},
    {2234, "arrow_ll.bmp"},
    {2235, "arrow_rr.bmp"},
    {2236, "icoabort.bmp"},
    {2237, "icoclose.bmp"},
    {2238, "icook.bmp"},
    {2239, "icoopen.bmp"},
    {2240, "icosearc.bmp"},
    {2241, "icoinfo.bmp"},
    {2242, "iconeu.bmp"},
    {2243, "icoedit.bmp"},
    {2244, "icoprint.bmp"},
    {2245, "icoimprt.bmp"},
    {2246, "icoexprt.bmp"},
    {2247, "icodel.bmp"},
    {2248, "icomess.bmp"},
    {2249, "icovind.bmp"},
    {2250, "icoslall.bmp"},
    {2251, "icosetup.bmp"},
    {2252, "iconext.bmp"},
    {2253, "icorech.bmp"},
    {2255, "icosort.bmp"},
    {2256, "icopap.bmp"},
    {2257, "icopapfm.bmp"},
    {2258, "iconum.bmp"},
    {2259, "icorstof.bmp"},
    {2260, "icorstzu.bmp"},
    {2261, "vindr100.bmp"},
    {2262, "vindar20.bmp"},
    {2263, "icoorneu.bmp"},
    {2264, "icoordel.bmp"},
    {2265, "icodb2.bmp"},
    {2266, "icodbneu.bmp"},
    {2267, "icodbdel.bmp"},
    {2268, "ico_favo.bmp"},
    {2269, "icomail.bmp"},
    {2270, "icogroup.bmp"},
    {2271, "icoenabl.bmp"},
}};
// clang-format on

}  // namespace kv::detail
