#include "vue/DelegueEntrees.h"

#include "vue/ModeleTable.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>

namespace {

constexpr int CoteIcone = 16;
constexpr int Marge = 3;       // between the cell's edge and what it holds, as the titles above have it
constexpr int EspaceIcone = 5; // between icon and text
constexpr int AirEnHauteur = 7;

/// What can be seen of a text in so many pixels: the rest of a very long one need not be measured.
QString PartieVisible(const QString& texte, int largeur)
{
    const qsizetype assez = 4 * qsizetype(largeur) + 16;
    return texte.size() > assez ? texte.left(assez) : texte;
}

/// Whether a painter draws the text as it is: without line ends, tabs and the like.
bool SansCommandes(const QString& texte)
{
    return std::ranges::none_of(texte, [](QChar c) {
        const QChar::Category genre = c.category();
        return genre == QChar::Other_Control || genre == QChar::Separator_Line || genre == QChar::Separator_Paragraph;
    });
}

/// Draws a text that fits; false, and nothing drawn, when it does not.
bool DessinerEntier(QPainter& painter, const QRect& place, const QString& texte)
{
    QTextOption choix;
    choix.setWrapMode(QTextOption::NoWrap);
    choix.setTextDirection(painter.layoutDirection());
    QTextLayout trace(texte, painter.font(), painter.device());
    trace.setTextOption(choix);
    trace.beginLayout();
    QTextLine ligne = trace.createLine();
    ligne.setLineWidth(QWIDGETSIZE_MAX);
    trace.endLayout();
    if (ligne.horizontalAdvance() > place.width())
        return false;
    ligne.draw(&painter, QPointF(place.left(), place.top() + (place.height() - ligne.height()) / 2));
    return true;
}

/// One line, which ends with an ellipsis where it is cut. Most texts fit, and shaping their letters takes most of the
/// time: it is done once for them, by who draws them, not first by who measures them.
void DessinerTexte(QPainter& painter, const QRect& place, const QString& texte, const QFontMetrics& mesures)
{
    if (SansCommandes(texte) && DessinerEntier(painter, place, texte))
        return;
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     mesures.elidedText(texte, Qt::ElideRight, place.width()));
}

} // namespace

DelegueEntrees::DelegueEntrees(const ModeleTable& modele, QObject* parent)
    : QStyledItemDelegate(parent), m_modele(modele)
{
}

int DelegueEntrees::HauteurLigne(const QFontMetrics& mesures)
{
    return qMax(mesures.height(), CoteIcone) + AirEnHauteur;
}

int DelegueEntrees::AutourDuTexte(int colonne)
{
    return 2 * Marge + (colonne == 1 ? CoteIcone + EspaceIcone : 0);
}

bool DelegueEntrees::TientEn(const QString& texte, int colonne, int largeur, const QFontMetrics& mesures)
{
    const int place = largeur - AutourDuTexte(colonne);
    const QString partie = PartieVisible(texte, qMax(place, 0));
    return partie.size() == texte.size() && mesures.horizontalAdvance(texte) <= place;
}

void DelegueEntrees::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const MyLV& table = m_modele.Table();
    const int ligne = index.row() + 1;
    if (!table.ListItems.Existe(ligne) || !table.ColumnHeaders.Existe(index.column() + 1))
        return;

    const ListItemLu entree = table.ListItems(ligne);
    const bool choisie = entree.Selected();
    if (choisie) {
        QStyleOptionViewItem fond(option);
        fond.state |= QStyle::State_Selected;
        fond.state &= ~QStyle::State_MouseOver;
        fond.showDecorationSelected = true;
        QStyle* style = option.widget ? option.widget->style() : QApplication::style();
        style->drawPrimitive(QStyle::PE_PanelItemViewItem, &fond, painter, option.widget);
    }

    QRect place = option.rect.adjusted(Marge, 0, -Marge, 0);
    if (index.column() == 0) {
        const QRect icone(place.left(), place.top() + (place.height() - CoteIcone) / 2, CoteIcone, CoteIcone);
        if (icone.right() <= option.rect.right())
            m_modele.Marque(entree.SmallIcon())
                .paint(painter, icone, Qt::AlignCenter, choisie ? QIcon::Selected : QIcon::Normal);
        place.setLeft(icone.right() + 1 + EspaceIcone);
    }
    const QString texte = entree.Valeur(index.column() + 1);
    if (texte.isEmpty() || place.width() <= 0)
        return;
    const auto groupe = option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
    painter->setPen(option.palette.color(groupe, choisie ? QPalette::HighlightedText : QPalette::Text));
    DessinerTexte(*painter, place, PartieVisible(texte, place.width()), option.fontMetrics);
}

QSize DelegueEntrees::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QString texte = index.data(Qt::DisplayRole).toString();
    return QSize(option.fontMetrics.horizontalAdvance(texte) + AutourDuTexte(index.column() + 1) + 1,
                 HauteurLigne(option.fontMetrics));
}
