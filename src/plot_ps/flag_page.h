// flag_page.h - the box at the foot of the sheet that names file and page. For the files of this folder only.
#pragma once

namespace sondera {

/// Writes the flag page box; to be called before the page's origin is moved. Ink and font of the page are the
/// same afterwards.
void WriteFlagPage();

}  // namespace sondera
