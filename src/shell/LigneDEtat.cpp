#include "shell/LigneDEtat.h"

#include "catalogue/texte/Categorie.h"
#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "kit/TexteDInfobulle.h"
#include "platform/Plateforme.h"

#include <QLabel>
#include <QPainter>
#include <QStatusBar>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

/// Room for a count of entries, in characters.
constexpr int SignesDUnCompte = 22;

/// A label that gives way in a narrow window: its text is shortened, and shown whole as a tip.
class TexteQuiCede : public QLabel
{
public:
    using QLabel::QLabel;

    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter peintre(this);
        const QString visible = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
        style()->drawItemText(&peintre, contentsRect(), int(alignment()), palette(), isEnabled(), visible,
                              foregroundRole());
    }
};

} // namespace

LigneDEtat::LigneDEtat(QStatusBar& barre, const Categorie& doc) : QObject(&barre), m_barre(barre), m_doc(doc)
{
    barre.setContentsMargins(6, 0, 6, 0);
    m_nombre = new QLabel(&barre);
    m_choisies = new QLabel(&barre);
    m_nombre->setObjectName(u"StatusBar1_1"_s);
    m_choisies->setObjectName(u"StatusBar1_2"_s);
    for (QLabel* compte : {m_nombre, m_choisies})
        barre.addWidget(compte);
    m_fait = Panneau(u"Fait"_s);
    barre.addWidget(m_fait, 1);
    m_marque = new QLabel(&barre);
    m_marque->setPixmap(Icone(u"modifie"_s).pixmap(barre.fontMetrics().height()));
    barre.addPermanentWidget(m_marque);
    m_modifie = Panneau(u"Modifie"_s);
    m_tri = Panneau(u"Tri"_s);
    m_place = Panneau(u"Place"_s);
    for (QLabel* panneau : {m_modifie, m_tri, m_place})
        barre.addPermanentWidget(panneau);
    EcarterComptes();
}

QLabel* LigneDEtat::Panneau(const QString& nom)
{
    auto* panneau = new TexteQuiCede(&m_barre);
    panneau->setObjectName(u"StatusBar1_"_s + nom);
    panneau->setTextFormat(Qt::PlainText);
    panneau->setContentsMargins(panneau->fontMetrics().averageCharWidth(), 0, 0, 0);
    return panneau;
}

/// The second count stands still while the first one changes.
void LigneDEtat::EcarterComptes()
{
    for (QLabel* compte : {m_nombre, m_choisies})
        compte->setMinimumWidth(compte->fontMetrics().averageCharWidth() * SignesDUnCompte);
}

void LigneDEtat::Montrer()
{
    MontrerComptes();
    MontrerTri();
    MontrerModification();
}

void LigneDEtat::MontrerComptes()
{
    const auto compte = [](int nombre) { return QString::number(nombre); };
    const int entrees = m_doc.ItemsCount();
    m_nombre->setText(LangMsg(u"msg94"_s, u"%1 entrée(s)"_s).Remplacer(u"%1"_s, compte(entrees)));
    m_choisies->setText(LangMsg(u"msg95"_s, u"%1 selectionnée(s)"_s).Remplacer(u"%1"_s, compte(m_doc.SelItemsCount())));
    m_nombre->setAccessibleDescription(LangMsg(u"msgNombre"_s, u"Nombre d'entrées"_s));
    m_choisies->setAccessibleDescription(LangMsg(u"msgNombreChoisies"_s, u"Nombre d'entrées sélectionnées"_s));
    const auto courante = m_doc.Table.SelectedItem();
    m_place->setText(compte(courante ? courante.Index() : 0) + u" / "_s + compte(entrees));
    m_place->setToolTip(LangMsg(u"msgEtatPlace"_s, u"Place de l'entrée courante, et nombre d'entrées"_s));
}

void LigneDEtat::MontrerTri()
{
    const int colonne = m_doc.Table.SortKey() + 1;
    const bool trie = m_doc.Table.Sorted() && colonne <= m_doc.ColCount();
    m_tri->setVisible(trie);
    if (!trie)
        return;
    const bool decroissant = m_doc.Table.SortOrder() != 0;
    const QString titre = m_doc.Table.ColumnHeaders(colonne).Text();
    m_tri->setText(titre + (decroissant ? u" Z\u2192A"_s : u" A\u2192Z"_s));
    const Message ordre = decroissant ? LangMsg(u"msgEtatDecroissant"_s, u"Trié par « %1 », en ordre décroissant"_s)
                                      : LangMsg(u"msgEtatCroissant"_s, u"Trié par « %1 », en ordre croissant"_s);
    const QString dit = ordre.Remplacer(u"%1"_s, titre);
    m_tri->setToolTip(TexteDInfobulle(dit));
    m_tri->setAccessibleName(dit);
}

void LigneDEtat::MontrerModification()
{
    const bool change = m_doc.AChange();
    m_marque->setVisible(change);
    m_modifie->setVisible(change);
    m_modifie->setText(LangMsg(u"msgEtatModifie"_s, u"modifié"_s));
    if (change)
        m_fait->clear();
}

void LigneDEtat::MontrerEnregistrement()
{
    m_fait->setText(LangMsg(u"msgEtatEnregistre"_s, u"Enregistré à %1 : %2, %3 entrée(s)"_s)
                        .Remplacer(u"%1"_s, plateforme().horloge->Maintenant().toString(u"HH:mm:ss"_s))
                        .Remplacer(u"%3"_s, QString::number(m_doc.ItemsCount()))
                        .Remplacer(u"%2"_s, m_doc.filename()));
    m_fait->setToolTip(TexteDInfobulle(m_doc.CheminReel()));
    MontrerModification();
}
