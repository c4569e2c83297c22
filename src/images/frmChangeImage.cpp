#include "images/frmChangeImage.h"

#include "base/Const_Vrac.h"
#include "base/DialogueFichier.h"
#include "base/Evenements.h"
#include "base/Options.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "images/AjouterImage.h"
#include "images/Bibliotheque.h"
#include "images/DelegueVignettes.h"
#include "images/FichierImage.h"
#include "images/SupprimerImage.h"
#include "images/Vignettes.h"
#include "kit/Icones.h"
#include "ui_frmChangeImage.h"

#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

constexpr int CoteVignette = 48;

} // namespace

frmChangeImage::frmChangeImage(QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmChangeImage>()),
      m_vignettes(new Vignettes(CoteVignette, devicePixelRatioF(), this))
{
    m_ui->setupUi(this);
    m_ui->btAnnuler->setIcon(Icone(u"annuler"_s));
    m_ui->btAjouter->setIcon(Icone(u"addentree"_s));
    m_ui->Command1->setIcon(Icone(u"delentree"_s));
    m_ui->Command2->setIcon(Icone(u"delentree"_s));
    m_ui->List1->setItemDelegate(new DelegueVignettes(*m_vignettes, m_ui->List1));
    connect(m_vignettes, &Vignettes::Prete, m_ui->List1->viewport(), qOverload<>(&QWidget::update));

    connect(m_ui->List1, &QListWidget::itemSelectionChanged, this, &frmChangeImage::MontrerChoisi);
    connect(m_ui->List1, &QListWidget::itemDoubleClicked, this, [this] { Fermer(NomChoisi()); });
    connect(m_ui->btOK, &QPushButton::clicked, this, [this] { Fermer(NomChoisi()); });
    connect(m_ui->btAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->btAjouter, &QPushButton::clicked, this, &frmChangeImage::Ajouter);
    connect(m_ui->Command1, &QPushButton::clicked, this, &frmChangeImage::SupprimerChoisi);
    connect(m_ui->Command2, &QPushButton::clicked, this, [this] { Fermer(u"#"_s); });
    auto* suppr = new QShortcut(QKeySequence(Qt::Key_Delete), m_ui->List1);
    suppr->setContext(Qt::WidgetShortcut);
    connect(suppr, &QShortcut::activated, this, &frmChangeImage::SupprimerChoisi);
    LangForm(*this);
}

frmChangeImage::~frmChangeImage() = default;

void frmChangeImage::Remplir(const QString& nomActuel)
{
    m_vignettes->SetDossier(Dossier);
    m_ui->List1->addItems(ListerImages(Dossier, LaisserPasserEvenements));
    m_ui->Img->ChargerOuVider(FichierImage(Dossier, nomActuel));
}

void frmChangeImage::Fermer(const QString& resultat)
{
    Resultat = resultat;
    accept();
}

void frmChangeImage::reject()
{
    Resultat.clear();
    QDialog::reject();
}

/// Empty when no line is selected. The current line is another matter: the list has one as soon as it has the focus.
QString frmChangeImage::NomChoisi() const
{
    const QList<QListWidgetItem*> lignes = m_ui->List1->selectedItems();
    return lignes.isEmpty() ? QString() : lignes.first()->text();
}

void frmChangeImage::MontrerChoisi()
{
    const QString nom = NomChoisi();
    m_ui->Command1->setEnabled(!nom.isEmpty());
    m_ui->Img->ChargerOuVider(FichierImage(Dossier, nom));
}

/// Entries that name the file keep their image name, and show no picture from then on. No other line is selected in its
/// place, as lists do by themselves: Enter would give the entry a picture that nobody chose.
void frmChangeImage::SupprimerChoisi()
{
    int mode = 0;
    if (!SupprimerImage(FichierImage(Dossier, NomChoisi()), mode))
        return;
    delete m_ui->List1->selectedItems().first();
    // Its button is disabled now; the next one would take the focus, and is the one for no image.
    m_ui->List1->setFocus();
    m_ui->List1->clearSelection();
}

/// A failure ends this without a word, and the dialog stays as it was.
void frmChangeImage::Ajouter()
{
    const auto choix = DialogueOuvrir({m_ui->btAjouter->text().remove(u'&'),
                                       LireOption(Options::ImgInitDir),
                                       {{LangMsg(u"msgImages"_s, u"Images"_s), u"*.bmp;*.jpg;*.gif;*.jpeg;*.jpe"_s}}});
    if (!choix || choix->fichiers.isEmpty())
        return;
    const QString fichier = choix->fichiers.first();
    EcrireOption(Options::ImgInitDir, fichier.chopped(NomDeFichier(fichier).size()));

    if (const std::optional<QString> ajoutee = AjouterImage(Dossier, fichier, NomTenable(fichier), this))
        Fermer(*ajoutee);
}
