// board_choice.h - the board driver in use: "DRIVER" or "DRIVER:options".
//
// Callers: the command line and scripts. Without a choice there is no board. Owns no state.
#pragma once

#include <string>
#include <string_view>

namespace sondera {

/// Installs the driver of a choice such as "sim:seed=2,channels=2"; "none" removes the board.
/// @return "", or one sentence: an unknown driver or option, or a board that does not exist. Then the driver
/// in use stays, unless the new one needed its program or sound card.
std::string ChooseBoard(std::string_view choice);

/// Every driver of this build, its options and the devices that it finds now. Installs nothing.
std::string BoardListText();

}  // namespace sondera
