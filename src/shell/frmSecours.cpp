#include "shell/frmSecours.h"

#include "base/AfficherMsg.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "kit/TexteDInfobulle.h"
#include "ui_frmSecours.h"

#include <QDir>
#include <QHeaderView>
#include <QLocale>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int CoteImage = 32;
constexpr int Air = 10;              // between the lines of the list, in pixels
constexpr int LargeurMaxDuNom = 240; // the most that a name takes by itself: the other columns want to be seen too

enum Colonne { ColNom, ColChemin, ColDate, ColEntrees, ColModifications };

QString TexteDe(const QString& cle, const QString& defaut)
{
    return LangMsg(cle, defaut);
}

QStringList Titres()
{
    return {TexteDe(u"msgSecoursCol1"_s, u"Catégorie"_s), TexteDe(u"msgSecoursCol2"_s, u"Emplacement"_s),
            TexteDe(u"msgSecoursCol3"_s, u"Dernière écriture"_s), TexteDe(u"msgSecoursCol4"_s, u"Entrées"_s),
            TexteDe(u"msgSecoursCol5"_s, u"Modifications"_s)};
}

QString Modifications(const DossierLaisse& laisse)
{
    if (laisse.tus)
        return TexteDe(u"msgSecoursFermee"_s, u"fermée sans enregistrer"_s);
    return laisse.modifie || !laisse.enregistree ? TexteDe(u"msgSecoursModif"_s, u"non enregistrées"_s)
                                                 : TexteDe(u"msgSecoursSansModif"_s, u"aucune"_s);
}

QTreeWidgetItem* Ligne(const DossierLaisse& laisse)
{
    const QString jamais = TexteDe(u"msgSecoursJamais"_s, u"jamais enregistrée"_s);
    const QString chemin = QDir::toNativeSeparators(laisse.chemin);
    auto* ligne = new QTreeWidgetItem(
        {laisse.nom, chemin.isEmpty() ? jamais : chemin, laisse.date.toString(u"dd/MM/yyyy HH:mm"_s),
         laisse.entrees ? QLocale().toString(*laisse.entrees) : QString(), Modifications(laisse)});
    ligne->setTextAlignment(ColEntrees, Qt::AlignRight | Qt::AlignVCenter);
    ligne->setToolTip(ColNom, TexteDInfobulle(laisse.nom));
    ligne->setToolTip(ColChemin, TexteDInfobulle(chemin.isEmpty() ? laisse.dossier : chemin));
    return ligne;
}

} // namespace

frmSecours::frmSecours(Cadre& cadre, std::vector<DossierLaisse> laisses, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmSecours>()), m_cadre(cadre), m_laisses(std::move(laisses))
{
    m_ui->setupUi(this);
    m_ui->Image1->setPixmap(Icone(u"information"_s).pixmap(CoteImage));
    Remplir();
    connect(m_ui->lstLaisses, &QTreeWidget::itemSelectionChanged, this, &frmSecours::Accorder);
    connect(m_ui->lstLaisses, &QTreeWidget::itemDoubleClicked, m_ui->btOuvrir, &QPushButton::click);
    connect(m_ui->btOuvrir, &QPushButton::clicked, this, [this] {
        PourChaqueChoisi([this](const DossierLaisse& laisse) { return OuvrirLaisse(m_cadre, laisse); });
    });
    connect(m_ui->btJeter, &QPushButton::clicked, this, &frmSecours::Jeter);
    connect(m_ui->btPlusTard, &QPushButton::clicked, this, &QDialog::reject);
    LangForm(*this);
    setAccessibleDescription(m_ui->Label1->text());
}

frmSecours::~frmSecours() = default;

void frmSecours::Remplir()
{
    QTreeWidget* liste = m_ui->lstLaisses;
    liste->setHeaderLabels(Titres());
    liste->headerItem()->setTextAlignment(ColEntrees, Qt::AlignRight | Qt::AlignVCenter);
    for (const DossierLaisse& laisse : m_laisses) {
        QTreeWidgetItem* ligne = Ligne(laisse);
        ligne->setSizeHint(ColEntrees, QSize(0, liste->fontMetrics().height() + Air));
        liste->addTopLevelItem(ligne);
    }
    liste->header()->setStretchLastSection(false);
    liste->resizeColumnToContents(ColNom);
    liste->setColumnWidth(ColNom, qMin(liste->columnWidth(ColNom), LargeurMaxDuNom));
    for (const Colonne colonne : {ColDate, ColEntrees, ColModifications})
        liste->header()->setSectionResizeMode(colonne, QHeaderView::ResizeToContents);
    liste->header()->setSectionResizeMode(ColChemin, QHeaderView::Stretch);
    liste->setCurrentItem(liste->topLevelItem(0));
    liste->setFocus();
}

void frmSecours::Accorder()
{
    const bool choisi = !m_ui->lstLaisses->selectedItems().isEmpty();
    m_ui->btOuvrir->setEnabled(choisi);
    m_ui->btJeter->setEnabled(choisi);
}

QStringList frmSecours::NomsChoisis() const
{
    QStringList noms;
    for (int i = 0; i < m_ui->lstLaisses->topLevelItemCount(); ++i) {
        if (m_ui->lstLaisses->topLevelItem(i)->isSelected())
            noms.append(m_laisses[static_cast<size_t>(i)].nom);
    }
    return noms;
}

/// Nothing brings back what goes here: who clicked beside the button for opening is asked, and Enter keeps it.
void frmSecours::Jeter()
{
    const QString noms = NomsChoisis().join(u'\n');
    const Message question =
        LangMsg(u"msgSecoursJeter"_s, u"Supprimer définitivement ? Ce qui n'a pas été enregistré sera perdu :\n%1"_s)
            .Remplacer(u"%1"_s, noms)
            .ParDefaut(RepNon);
    if (AfficherMsg(question, MsgOuiNon, windowTitle()) == RepOui)
        PourChaqueChoisi([](const DossierLaisse& laisse) { return JeterLaisse(laisse), true; });
}

/// What was done leaves the list; the line in its place is the next to choose.
void frmSecours::PourChaqueChoisi(const std::function<bool(const DossierLaisse&)>& faire)
{
    QTreeWidget* liste = m_ui->lstLaisses;
    int suivante = 0;
    for (int i = 0; i < liste->topLevelItemCount();) {
        if (!liste->topLevelItem(i)->isSelected() || !faire(m_laisses[static_cast<size_t>(i)])) {
            ++i;
            continue;
        }
        m_laisses.erase(m_laisses.begin() + i);
        delete liste->takeTopLevelItem(i);
        suivante = i;
    }
    if (m_laisses.empty())
        return accept();
    if (liste->selectedItems().isEmpty())
        liste->setCurrentItem(liste->topLevelItem(qMin(suivante, liste->topLevelItemCount() - 1)));
    Accorder();
}
