// From an item of a menu to what it does.
#pragma once

#include "platform/Retenue.h"

#include <QAction>

#include <functional>
#include <utility>

/// Calls `suite` whenever the item is chosen. While a file is being replaced it waits: clicks and keys do so by
/// themselves, but assistive technologies choose items at any time.
inline void Relier(const QAction& item, QObject* contexte, std::function<void()> suite)
{
    QObject::connect(&item, &QAction::triggered, contexte,
                     [contexte, suite = std::move(suite)] { Retenue::Apres(contexte, suite); });
}
