// The strip of tabs as assistive technologies see it: Qt's own does not say which tab is selected.
#pragma once

/// Has every BandeOnglets seen so from here on.
void InstallerOngletsAccessibles();
