// flag_page.h - the box at the bottom of the page that names file and page. For the files of this folder
// only.
#pragma once

namespace sondera {

/// Writes the flag page box; call it before the page's origin is moved. Colour, line and font of the page are
/// the same afterwards.
void WriteFlagPage();

}  // namespace sondera
