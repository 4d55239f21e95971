// Text: the translated texts of the application, read from ".lng" files, found by the number of their group
// and their own number in it. The state is the process's own and belongs to the main thread.
//
// A file holds groups, "{name}", and below each its entries, one a line, "[text]", which count from 0. The
// text runs from the first "[" to the last "]" of the line, so that it may hold brackets. "//" and "/* */"
// are comments, in an entry too. Everything else is a remark. The last line has to end with a line end.
// Several files make one table.
#pragma once

#include "SV/core/String.h"

namespace kv {

class Text {
  public:
    Text() = delete;

    /// Adds the texts of the file of this name. Faults are shown in boxes, in German if the message language
    /// is 49, else in English; of a file with a fault no text is kept. Its groups stay counted, and so the
    /// texts of files that are loaded after it would stand at shifted places: call `FreeResources` and load
    /// again.
    ///
    /// 199 groups are the most that load without a fault.
    static void LoadText(sv::String const& name);
    /// Makes `language`, a country code, the message language, and adds the file `name` + `language` +
    /// ".lng".
    static void LoadText(sv::String const& name, int language);

    /// Empty when there is no such text. A number past the end of its group reaches into the groups behind
    /// it.
    [[nodiscard]] static sv::String GetText(unsigned group, unsigned long index);
    /// 0 when there is no such group, and for the last group of a file whose last entry lacks its line end.
    [[nodiscard]] static unsigned long GetEntryCount(unsigned group);
    /// The first group of exactly this name, or the value -1 as unsigned.
    [[nodiscard]] static unsigned GetGroupNr(sv::String const& name);

    /// What each text passes through on being stored: as it stands.
    [[nodiscard]] static sv::String ConvertText(sv::String const& text) { return text; }

    /// Forgets all texts and groups; the message language is English again.
    static void FreeResources();
};

}  // namespace kv
