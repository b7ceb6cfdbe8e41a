// panel_pictures.h - pictures and previews on panels that follow the fields beside them, whoever writes the fields: the
// picture of the layers, the windows of the filter, the preview of an import.
#pragma once

namespace sondera {

/// From now on they follow. Called at each session start; the observer is in panels_state.h.
void InstallPanelPictures();

/// Draws the layers of the table as they stand.
void DrawModelPicture();

}  // namespace sondera
