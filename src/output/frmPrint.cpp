#include "output/frmPrint.h"

#include "base/AfficherMsg.h"
#include "base/Options.h"
#include "base/SurUneLigne.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "output/ColonnesDeFeuille.h"
#include "output/frmPrintOptions.h"
#include "platform/Plateforme.h"
#include "ui_frmPrint.h"

#include <QHeaderView>
#include <QSignalBlocker>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

enum ColonneDeListe { ListeTitre, ListeLargeur };

/// On paper, as the list shows it: tenths of a millimetre.
double Affichee(double mm)
{
    return std::round(mm * 10) / 10;
}

} // namespace

frmPrint::frmPrint(const QString& dossier, QWidget* parent)
    : QDialog(parent), DossierImpression(dossier), m_ui(std::make_unique<Ui::frmPrint>()), m_options(dossier)
{
    m_ui->setupUi(this);
    RemplirImprimantes();
    m_ui->Command1->setIcon(::Icone(u"print"_s));
    m_ui->Command2->setIcon(::Icone(u"annuler"_s));
    m_ui->btOption->setIcon(::Icone(u"options"_s));
    m_ui->btApercu->setIcon(::Icone(u"voir"_s));
    LangForm(*this);
    m_ui->Largeurs->setHorizontalHeaderLabels(
        {LangMsg(u"msgColonne"_s, u"Colonne"_s), LangMsg(u"msgLargeur"_s, u"Largeur (mm)"_s)});
    m_ui->Largeurs->horizontalHeader()->setSectionResizeMode(ListeTitre, QHeaderView::Stretch);
    m_ui->Largeurs->horizontalHeader()->setSectionResizeMode(ListeLargeur, QHeaderView::ResizeToContents);
    // One height for all: asking each row for its own takes long where there are very many.
    m_ui->Largeurs->verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    m_ui->Feuille->NomCat->setText(u"Zelvane v2.2 -"_s);
    if (LireOption(Options::MessageImprim)) {
        AfficherMsg(LangMsg(u"msg29"_s, u"Redimensionnez les colonnes, pour qu'elles tiennent sur une page.\n"
                                        u"Pour ne pas imprimer une colonne donnez lui une taille nulle"_s),
                    MsgOk, QString());
    }
    (m_options.SelectionSeule() ? m_ui->Option1_1 : m_ui->Option1_0)->setChecked(true);

    connect(m_ui->Option1_0, &QRadioButton::clicked, this, [this] { ChoisirEntrees(false); });
    connect(m_ui->Option1_1, &QRadioButton::clicked, this, [this] { ChoisirEntrees(true); });
    connect(m_ui->btOption, &QPushButton::clicked, this, &frmPrint::ModifierOptions);
    connect(m_ui->btApercu, &QPushButton::clicked, this, &frmPrint::ApercuDemande);
    connect(m_ui->btAjuster, &QPushButton::clicked, this, &frmPrint::AjusterALaPage);
    connect(m_ui->Command1, &QPushButton::clicked, this, &frmPrint::Imprimer);
    connect(m_ui->Command2, &QPushButton::clicked, this, &frmPrint::Annuler);
    connect(m_ui->Feuille->LV1, &ColonnesDeFeuille::LargeurTiree, this, &frmPrint::LargeurTiree);
    connect(m_ui->Feuille->LV1, &ColonnesDeFeuille::ColonneCliquee, this,
            [this](int colonne) { m_ui->Largeurs->setCurrentCell(colonne - 1, ListeLargeur); });
    connect(m_ui->Largeurs, &QTableWidget::itemChanged, this,
            [this](QTableWidgetItem* cellule) { LargeurSaisie(*cellule); });
}

frmPrint::~frmPrint() = default;

/// A file stands behind all printers, so that there is always one.
void frmPrint::RemplirImprimantes()
{
    const Imprimantes& imprimantes = *plateforme().imprimantes;
    const QStringList noms = imprimantes.Noms();
    m_ui->Combo1->addItems(noms);
    m_ui->Combo1->addItem(LangMsg(u"msgFichierPdf"_s, u"Imprimer dans un fichier PDF"_s));
    const int courante = m_ui->Combo1->findText(imprimantes.Courante(), Qt::MatchExactly | Qt::MatchCaseSensitive);
    m_ui->Combo1->setCurrentIndex(noms.isEmpty() ? 0 : courante);
}

// ---- what the caller sets and reads

void frmPrint::ActualiseNomCat()
{
    m_ui->Feuille->NomCat->setText(TexteDEntete(TexteEntete, TitreImpression, NombreEntrees, NomCategorie));
}

void frmPrint::MontrerColonnes(const std::vector<Feuille::Colonne>& colonnes)
{
    m_ui->Feuille->LV1->MettreColonnes(colonnes);
    {
        const QSignalBlocker muet(*m_ui->Largeurs);
        m_ui->Largeurs->setRowCount(static_cast<int>(colonnes.size()));
        for (int ligne = 0; ligne < m_ui->Largeurs->rowCount(); ++ligne) {
            auto* nom = new QTableWidgetItem(SurUneLigne(colonnes[static_cast<size_t>(ligne)].titre));
            nom->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
            m_ui->Largeurs->setItem(ligne, ListeTitre, nom);
            auto* mm = new QTableWidgetItem;
            mm->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            m_ui->Largeurs->setItem(ligne, ListeLargeur, mm);
        }
        m_ui->Largeurs->setCurrentCell(0, ListeLargeur);
    }
    MontrerLargeurs();
}

void frmPrint::MontrerRangees(int nombre)
{
    m_ui->Feuille->LV1->MettreRangees(nombre);
}

void frmPrint::MontrerImage(const QImage& image)
{
    m_ui->Feuille->MontrerImage(image);
}

Feuille frmPrint::Disposition() const
{
    return m_ui->Feuille->Disposition();
}

const QImage& frmPrint::Image() const
{
    return m_ui->Feuille->Image();
}

bool frmPrint::SelectionSeule() const
{
    return m_ui->Option1_1->isChecked();
}

QString frmPrint::Imprimante() const
{
    return m_ui->Combo1->currentText();
}

bool frmPrint::VersUnFichier() const
{
    return m_ui->Combo1->currentIndex() == m_ui->Combo1->count() - 1;
}

// ---- the columns: on the sheet and in the list

void frmPrint::MontrerLargeur(int colonne)
{
    const double largeur = m_ui->Feuille->LV1->Colonnes()[static_cast<size_t>(colonne - 1)].largeur;
    const QSignalBlocker muet(*m_ui->Largeurs);
    m_ui->Largeurs->item(colonne - 1, ListeTitre)->setCheckState(largeur > 0 ? Qt::Checked : Qt::Unchecked);
    m_ui->Largeurs->item(colonne - 1, ListeLargeur)->setData(Qt::EditRole, Affichee(largeur * Feuille().EchelleX()));
}

void frmPrint::MontrerLargeurs()
{
    for (int i = 1; i <= m_ui->Largeurs->rowCount(); ++i)
        MontrerLargeur(i);
    MontrerTotal();
}

void frmPrint::LargeurTiree(int colonne)
{
    MontrerLargeur(colonne);
    MontrerTotal();
}

/// A width is typed, or a column ticked, which gets back a width that lets it be read.
void frmPrint::LargeurSaisie(const QTableWidgetItem& cellule)
{
    constexpr double Lisible = 10; // mm of the sheet
    ColonnesDeFeuille& lv1 = *m_ui->Feuille->LV1;
    const int colonne = cellule.row() + 1;
    if (cellule.column() == ListeLargeur)
        lv1.MettreLargeur(colonne, cellule.data(Qt::EditRole).toDouble() / Feuille().EchelleX());
    else
        lv1.MettreLargeur(colonne, cellule.checkState() == Qt::Checked ? Lisible : 0);
    LargeurTiree(colonne);
}

void frmPrint::AjusterALaPage()
{
    ColonnesDeFeuille& lv1 = *m_ui->Feuille->LV1;
    double total = 0;
    for (const Feuille::Colonne& colonne : lv1.Colonnes())
        total += colonne.largeur;
    if (total <= 0)
        return;
    const double facteur = Feuille().largeurDeLV1 / total;
    for (int i = 1; i <= static_cast<int>(lv1.Colonnes().size()); ++i)
        lv1.MettreLargeur(i, lv1.Colonnes()[static_cast<size_t>(i - 1)].largeur * facteur);
    MontrerLargeurs();
}

void frmPrint::MontrerTotal()
{
    const Feuille feuille;
    double total = 0;
    for (const Feuille::Colonne& colonne : m_ui->Feuille->LV1->Colonnes())
        total += colonne.largeur;
    const bool depasse = Affichee((feuille.gaucheDeLV1 + total - feuille.largeur) * feuille.EchelleX()) > 0;
    const QString mm = locale().toString(Affichee(total * feuille.EchelleX()));
    const QString texte = depasse ? LangMsg(u"msgDepassePage"_s, u"Total : %1 mm, plus large que la page"_s).texte
                                  : LangMsg(u"msgTotalPage"_s, u"Total : %1 mm"_s).texte;
    m_ui->Label2->setText(texte.arg(mm));
}

// ---- the buttons

void frmPrint::ChoisirEntrees(bool selectionSeule)
{
    m_options.EcrireSelectionSeule(selectionSeule);
    OptionsModifiees = true;
}

void frmPrint::ModifierOptions()
{
    frmPrintOptions form(DossierImpression, this);
    form.MettreTextes(TexteEntete, TitreImpression);
    form.exec();
    TexteEntete = form.Texte();
    TitreImpression = form.Titre();
    ActualiseNomCat();
    MontrerImage(form.ImageAffichee() ? form.Image() : QImage());
    OptionsModifiees = true;
}

void frmPrint::Imprimer()
{
    if (Imprimante().isEmpty()) {
        AfficherMsg(LangMsg(u"msg28"_s, u"Veuillez selectionner une imprimante"_s), MsgOk, QString());
        m_ui->Combo1->setFocus();
        return;
    }
    Tag = u"<>"_s;
    accept();
}

void frmPrint::Annuler()
{
    Tag.clear();
    reject();
}
