#include "frmBilanCsv.h"

#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>

#include <algorithm>

using namespace Qt::StringLiterals;
using zelvane::LangMsg;

namespace {

/// The text with a number for its "%1"; nothing for none.
void Dire(QStringList& lignes, qint64 nombre, const QString& texte)
{
    if (nombre > 0)
        lignes.append(texte.arg(nombre));
}

bool EstDefectueuse(const LigneSignalee& ligne)
{
    return ligne.defauts != SansDefaut;
}

} // namespace

QStringList frmBilanCsv::Lignes(const BilanCsv& bilan)
{
    QStringList lignes;
    lignes.append(LangMsg(u"plugCsvLues"_s, u"Lignes lues : %1"_s).arg(bilan.lignes));
    if (bilan.interrompu)
        lignes.append(LangMsg(u"plugCsvInterrompu"_s, u"Le fichier n'a pas pu être lu jusqu'au bout."_s));
    Dire(lignes, bilan.vides, LangMsg(u"plugCsvLignesVides"_s, u"Lignes vides, passées : %1"_s));
    Dire(lignes, std::ranges::count_if(bilan.signalees, EstDefectueuse),
         LangMsg(u"plugCsvDefectueuses"_s, u"Lignes défectueuses : %1"_s));
    Dire(lignes, bilan.remplaces.barres, LangMsg(u"plugCsvBarres"_s, u"Valeurs où « | » est devenu « ¦ » : %1"_s));
    Dire(lignes, bilan.remplaces.sauts,
         LangMsg(u"plugCsvSauts"_s, u"Valeurs où un saut de ligne est devenu un espace : %1"_s));
    Dire(lignes, bilan.remplaces.nuls,
         LangMsg(u"plugCsvNuls"_s, u"Valeurs où un caractère nul est devenu un espace : %1"_s));
    Dire(lignes, bilan.illisibles, LangMsg(u"plugCsvIllisibles"_s, u"Caractères illisibles dans ce codage : %1"_s));
    Dire(lignes, bilan.images, LangMsg(u"plugCsvImages"_s, u"Entrées avec leur image : %1"_s));
    Dire(lignes, std::ranges::count_if(bilan.signalees, [](const auto& ligne) { return !ligne.image.isEmpty(); }),
         LangMsg(u"plugCsvImagesAbsentes"_s, u"Entrées sans leur image : %1"_s));
    return lignes;
}

frmBilanCsv::frmBilanCsv(const BilanCsv& bilan, const zelvane::Table& table, QWidget* parent)
    : QDialog(parent), m_modele(bilan.signalees, table, this)
{
    setWindowTitle(LangMsg(u"plugCsvFenetreBilan"_s, u"Importation d'un tableau"_s));
    setObjectName(u"frmBilanCsv"_s);
    Composer(bilan);
}

void frmBilanCsv::Composer(const BilanCsv& bilan)
{
    auto* boutons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    boutons->button(QDialogButtonBox::Ok)->setText(LangMsg(u"plugCsvOk"_s, u"Ok"_s));
    boutons->button(QDialogButtonBox::Cancel)->setText(LangMsg(u"plugCsvNePasImporter"_s, u"&Ne rien importer"_s));
    connect(boutons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(boutons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* resume = new QLabel(Lignes(bilan).join(u'\n'));
    resume->setObjectName(u"resume"_s);
    auto* tout = new QVBoxLayout(this);
    tout->addWidget(resume);
    if (!bilan.signalees.empty()) {
        tout->addWidget(ComposerListe(), 1);
        auto* copier =
            boutons->addButton(LangMsg(u"plugCsvCopier"_s, u"&Copier la liste"_s), QDialogButtonBox::ActionRole);
        copier->setObjectName(u"copier"_s);
        connect(copier, &QPushButton::clicked, this, [this] { QApplication::clipboard()->setText(m_modele.Texte()); });
    }
    if (std::ranges::any_of(bilan.signalees, EstDefectueuse))
        tout->addWidget(ComposerChoix());
    tout->addWidget(boutons);
    boutons->button(QDialogButtonBox::Ok)->setFocus();
    if (!bilan.signalees.empty())
        resize(sizeHint().expandedTo({90 * fontMetrics().averageCharWidth(), 0}));
}

QWidget* frmBilanCsv::ComposerListe()
{
    auto* liste = new QTableView;
    liste->setObjectName(u"signalees"_s);
    liste->setAccessibleName(LangMsg(u"plugCsvListe"_s, u"Lignes signalées"_s));
    liste->setModel(&m_modele);
    liste->setEditTriggers(QAbstractItemView::NoEditTriggers);
    liste->setSelectionBehavior(QAbstractItemView::SelectRows);
    liste->setTabKeyNavigation(false);
    liste->setWordWrap(false);
    liste->verticalHeader()->hide();
    liste->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    liste->verticalHeader()->setDefaultSectionSize(liste->fontMetrics().height() + 6);
    liste->horizontalHeader()->setStretchLastSection(true);
    const int lettre = liste->fontMetrics().averageCharWidth();
    liste->setColumnWidth(0, 9 * lettre);
    liste->setColumnWidth(1, 34 * lettre);
    liste->setMinimumSize(60 * lettre, 4 * liste->fontMetrics().height());
    return liste;
}

QWidget* frmBilanCsv::ComposerChoix()
{
    auto* choix = new QWidget;
    auto* prendre = new QRadioButton(
        LangMsg(u"plugCsvPrendreDefectueuses"_s, u"&Prendre les lignes défectueuses avec ce qu'elles ont"_s));
    prendre->setObjectName(u"prendre"_s);
    m_laisser =
        new QRadioButton(LangMsg(u"plugCsvLaisserDefectueuses"_s, u"&Laisser les lignes défectueuses de côté"_s));
    m_laisser->setObjectName(u"laisser"_s);
    prendre->setChecked(true);
    auto* colonne = new QVBoxLayout(choix);
    colonne->setContentsMargins({});
    colonne->addWidget(prendre);
    colonne->addWidget(m_laisser);
    return choix;
}

bool frmBilanCsv::SansDefectueuses() const
{
    return m_laisser && m_laisser->isChecked();
}

frmAvancementCsv::frmAvancementCsv(QWidget* parent) : QDialog(parent), m_barre(new QProgressBar)
{
    setWindowTitle(LangMsg(u"plugCsvFenetreBilan"_s, u"Importation d'un tableau"_s));
    setObjectName(u"frmAvancementCsv"_s);
    setModal(true);
    m_barre->setRange(0, 1000);
    m_barre->setMinimumWidth(40 * fontMetrics().averageCharWidth());
    auto* boutons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    boutons->button(QDialogButtonBox::Cancel)->setText(LangMsg(u"plugCsvAnnuler"_s, u"Annuler"_s));
    connect(boutons, &QDialogButtonBox::rejected, this, &frmAvancementCsv::reject);
    auto* tout = new QVBoxLayout(this);
    tout->addWidget(m_barre);
    tout->addWidget(boutons);
}

void frmAvancementCsv::Montrer(int fait)
{
    m_barre->setValue(fait);
    if (!isVisible())
        show();
    QCoreApplication::processEvents();
}
