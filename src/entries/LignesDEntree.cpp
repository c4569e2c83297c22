#include "entries/LignesDEntree.h"

#include "kit/TexteDInfobulle.h"

#include <QStyledItemDelegate>

namespace {

constexpr int ColonneTitre = 0;
constexpr int ColonneValeur = 1;
constexpr int RoleTextes = Qt::UserRole;

constexpr int AutourDuTexte = 8;     // pixels of a row's height beside its text
constexpr int CaracteresVus = 2'000; // more than any row shows; the rest of a long value costs no layout

class DelegueLignes : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& valeur, const QLocale& langue) const override
    {
        return QStyledItemDelegate::displayText(valeur.toString().left(CaracteresVus), langue);
    }
};

} // namespace

LignesDEntree::LignesDEntree(QWidget* parent) : QTreeWidget(parent)
{
    setItemDelegate(new DelegueLignes(this));
}

void LignesDEntree::Ajouter(const QString& titre, const QString& valeur, const QString& textes)
{
    auto* ligne = new QTreeWidgetItem({titre, valeur});
    ligne->setData(ColonneTitre, RoleTextes, textes);
    ligne->setToolTip(ColonneTitre, TexteDInfobulle(titre));
    ligne->setSizeHint(ColonneTitre, {0, fontMetrics().height() + AutourDuTexte});
    addTopLevelItem(ligne);
}

QString LignesDEntree::Titre(int ligne) const
{
    const QTreeWidgetItem* item = topLevelItem(ligne);
    return item ? item->text(ColonneTitre) : QString();
}

QString LignesDEntree::Valeur(int ligne) const
{
    const QTreeWidgetItem* item = topLevelItem(ligne);
    return item ? item->text(ColonneValeur) : QString();
}

QString LignesDEntree::Textes(int ligne) const
{
    const QTreeWidgetItem* item = topLevelItem(ligne);
    return item ? item->data(ColonneTitre, RoleTextes).toString() : QString();
}

void LignesDEntree::MettreValeur(int ligne, const QString& valeur)
{
    if (QTreeWidgetItem* item = topLevelItem(ligne))
        item->setText(ColonneValeur, valeur);
}

void LignesDEntree::MettreTextes(int ligne, const QString& textes)
{
    if (QTreeWidgetItem* item = topLevelItem(ligne))
        item->setData(ColonneTitre, RoleTextes, textes);
}

int LignesDEntree::Choisie() const
{
    const QModelIndexList choisies = selectionModel()->selectedRows();
    return choisies.isEmpty() ? -1 : choisies.constFirst().row();
}

void LignesDEntree::Choisir(int ligne)
{
    QTreeWidgetItem* item = topLevelItem(ligne);
    setCurrentItem(item);
    scrollToItem(item);
}

QItemSelectionModel::SelectionFlags LignesDEntree::selectionCommand(const QModelIndex& index, const QEvent*) const
{
    if (!index.isValid())
        return QItemSelectionModel::NoUpdate;
    return QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
}
