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

/// The same for an item that shows a state, on or off: `suite` is called whenever it is made to show another one than
/// `etat` tells. Assistive technologies change what is shown, and choose nothing.
inline void RelierEtat(const QAction& item, QObject* contexte, std::function<void()> suite, std::function<bool()> etat)
{
    QObject::connect(&item, &QAction::toggled, contexte,
                     [contexte, suite = std::move(suite), etat = std::move(etat)](bool montre) {
                         if (montre != etat())
                             Retenue::Apres(contexte, suite);
                     });
}
