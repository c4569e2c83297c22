// From items of menus to the rows of the table of commands.
#pragma once

#include "shell/Commandes.h"

#include <QList>
#include <QString>

#include <functional>
#include <optional>

class QAction;
class QObject;

/// The items of one form that stand for commands. Each has the picture and the shortcuts of its row, and its caption
/// unless it has one of its own; it says its row in the property "commande".
class ItemsDeCommandes
{
public:
    /// Where a command is to run; nothing when that place is gone.
    using Ou = std::function<std::optional<LieuDeCommande>()>;

    /// `ou`: the place that the items show the state of, and run at. `form` owns them, and lives longer.
    ItemsDeCommandes(QObject& form, Ou ou);

    void Brancher(QAction& item, QStringView cle);
    /// The same, to run somewhere else.
    void Brancher(QAction& item, QStringView cle, Ou ou);
    /// All direct items of the form that name a row in their property "commande".
    void BrancherNommes();

    /// Enables what can do something at this moment, and shows the states that are on or off.
    void Accorder();

private:
    struct Item
    {
        QAction* action;
        const RangDeCommande* rang;
    };

    QObject& m_form;
    Ou m_ou;
    QList<Item> m_items;
};
