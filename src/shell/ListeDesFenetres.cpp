#include "shell/ListeDesFenetres.h"

#include "kit/Icones.h"
#include "kit/TexteDInfobulle.h"
#include "shell/MDIForm1.h"
#include "shell/Relier.h"

#include <QAction>
#include <QMenu>

using namespace Qt::StringLiterals;

ListeDesFenetres::ListeDesFenetres(QMenu& menu, MDIForm1& cadre) : QObject(&menu), m_menu(menu), m_cadre(cadre)
{
    connect(&menu, &QMenu::aboutToShow, this, &ListeDesFenetres::Refaire);
    menu.setToolTipsVisible(true);
}

/// Made anew: names, marks and windows may have changed. The items have no names of their own, by which the language
/// would look for their texts.
void ListeDesFenetres::Refaire()
{
    qDeleteAll(m_items);
    m_items = {m_menu.addSeparator()};
    int numero = 0;
    for (FenetreDocument* document : m_cadre.Documents()) {
        if (auto* fenetre = dynamic_cast<Form1*>(document))
            Ajouter(++numero, *fenetre);
    }
}

void ListeDesFenetres::Ajouter(int numero, Form1& fenetre)
{
    const QString nom = fenetre.Caption().replace(u'&', u"&&"_s);
    constexpr int chiffres = 9;
    auto* item = new QAction(numero <= chiffres ? u"&%1 %2"_s.arg(QString::number(numero), nom) : nom, &m_menu);
    item->setCheckable(true);
    item->setChecked(&fenetre == m_cadre.FenetreActive());
    const QString chemin = fenetre.myqrt.CheminConnu();
    item->setToolTip(TexteDInfobulle(chemin.isEmpty() ? fenetre.Caption() : chemin));
    if (fenetre.myqrt.AChange())
        item->setIcon(Icone(u"modifie"_s));
    RelierEtat(
        *item, &fenetre, [this, &fenetre] { m_cadre.AmenerDevant(fenetre); },
        [this, &fenetre] { return m_cadre.FenetreActive() == &fenetre; });
    m_menu.addAction(item);
    m_items.append(item);
}
