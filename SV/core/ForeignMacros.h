// Removes macros of system headers that have names of this library. Has no include guard, since the headers
// may be included in any order.
//
// Include <windows.h> and <X11/Xlib.h> before the library's headers: the macros that they define afterwards
// would change the names in the program. GDI's functions can still be called with their suffix (GetObjectW),
// and X11's None is a constant.

#ifdef None
#undef None
inline constexpr long None = 0L;
#endif

#undef DrawText
#undef GetObject
#undef InsertMenu
#undef InsertMenuItem
#undef LoadBitmap
