// board_choice.h - which board driver is in use: "DRIVER" or "DRIVER:options".
//
// Callers: the command line and scripts. Without a choice there is no board. Owns no state.
#pragma once

#include <string>
#include <string_view>

namespace sondera {

/// Installs the driver of a choice such as "sim:seed=2,channels=2"; "none" takes the board away.
/// @return "", or one sentence: an unknown driver or option, or a board that is not there. Then the driver in
/// use stays, unless its own program or sound card had to be given up for the new one.
std::string ChooseBoard(std::string_view choice);

/// Every driver of this build, its options and what it finds now. Installs nothing.
std::string BoardListText();

}  // namespace sondera
