#include "shell/ItemsDeCommandes.h"

#include "kit/Icones.h"
#include "shell/Relier.h"

#include <QAction>
#include <QKeySequence>

#include <utility>

using namespace Qt::StringLiterals;

ItemsDeCommandes::ItemsDeCommandes(QObject& form, Ou ou) : m_form(form), m_ou(std::move(ou)) {}

void ItemsDeCommandes::Brancher(QAction& item, QStringView cle)
{
    Brancher(item, cle, m_ou);
}

void ItemsDeCommandes::Brancher(QAction& item, QStringView cle, Ou ou)
{
    const RangDeCommande* rang = Rang(cle);
    Q_ASSERT_X(rang, "ItemsDeCommandes", "a command that is no row of the table");
    item.setProperty("commande", cle.toString());
    if (item.text().isEmpty())
        item.setText(QString::fromUtf16(rang->caption));
    if (*rang->touches)
        item.setShortcuts(QKeySequence::listFromString(QLatin1StringView(rang->touches), QKeySequence::PortableText));
    if (rang->toucheDeTable)
        item.setShortcutContext(Qt::WidgetShortcut);
    const auto executer = [rang, ou = std::move(ou)] {
        if (const std::optional<LieuDeCommande> lieu = ou())
            Executer(rang->cle, *lieu);
    };
    if (rang->coche) {
        item.setCheckable(true);
        RelierEtat(item, &m_form, executer, [this, rang] {
            const std::optional<LieuDeCommande> lieu = m_ou();
            return lieu && rang->coche(*lieu);
        });
    } else {
        // What is on or off shows that, and no picture.
        item.setIcon(Icone(QLatin1StringView(rang->image)));
        Relier(item, &m_form, executer);
    }
    m_items.append({&item, rang});
}

void ItemsDeCommandes::BrancherNommes()
{
    for (QAction* item : m_form.findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (const QString cle = item->property("commande").toString(); !cle.isEmpty())
            Brancher(*item, cle);
    }
}

void ItemsDeCommandes::Accorder()
{
    const std::optional<LieuDeCommande> lieu = m_ou();
    if (!lieu)
        return;
    const EtatDuLieu etat(*lieu);
    for (const auto& [action, rang] : std::as_const(m_items)) {
        action->setEnabled(EstPossible(*rang, etat));
        if (rang->coche)
            action->setChecked(rang->coche(*lieu));
    }
}
