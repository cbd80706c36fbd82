#pragma once

namespace Toolkit {

/// Screen pixels for one device-independent pixel as the user has set the desktop up: TESSELOR_SCALE of the environment
/// (0.5 to 4), else the X server's Xft.dpi in parts of 96, in quarters; 1 if neither says anything.
float DesktopScale();

} // namespace Toolkit
