// Pictures of menu items.
#pragma once

class QObject;

/// Gives every item and every menu of a form that has a dynamic property "icone" (set in its .ui file) the icon of that
/// key.
void DonnerIcones(const QObject& form);
