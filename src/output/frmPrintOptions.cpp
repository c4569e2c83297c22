#include "output/frmPrintOptions.h"

#include "base/ActesDuDossier.h"
#include "base/AfficherMsg.h"
#include "base/Const_Vrac.h"
#include "base/DialogueFichier.h"
#include "base/Options.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "images/LireImage.h"
#include "kit/Icones.h"
#include "platform/NomsSysteme.h"
#include "ui_frmPrintOptions.h"

using namespace Qt::StringLiterals;

namespace {

/// As fine as paper shows it.
constexpr QSize PlaceDImage(800, 800);

/// The old copy stays until the new one is whole. True also where the file is that copy.
bool CopierImage(const QString& de, const QString& vers)
{
    const auto source = EtatDuChemin(de);
    const auto cible = EtatDuChemin(vers);
    if (source && cible && source->st_dev == cible->st_dev && source->st_ino == cible->st_ino)
        return true;
    const QString provisoire = vers + u".part"_s;
    SupprimerParChemin(provisoire);
    if (!CopierParChemin(de, provisoire))
        return false;
    if (RenommerParChemin(provisoire, vers)) {
        NoterEcriture(vers);
        return true;
    }
    SupprimerParChemin(provisoire);
    return false;
}

} // namespace

QImage ImageDEnteteParDefaut()
{
    return Icone(u"zelvane"_s).pixmap(PlaceDImage).toImage();
}

QImage ImageDEntete(const OptionsDImpression& options)
{
    return EstFichier(options.FichierImage()) ? LireImage(options.FichierImage(), PlaceDImage) : QImage();
}

frmPrintOptions::frmPrintOptions(const QString& dossier, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmPrintOptions>()), m_options(dossier)
{
    m_ui->setupUi(this);
    m_ui->btOK->setIcon(Icone(u"ok"_s));
    m_ui->btParcourir1->setIcon(Icone(u"open"_s));
    m_ui->Image2->setPixmap(QPixmap::fromImage(ImageDEnteteParDefaut()));
    m_ui->Image2->hide();
    for (QLineEdit* champ : {m_ui->Text1, m_ui->Text2})
        champ->setMaxLength(OptionsDImpression::LongueurDeTexte);
    LangForm(*this);
    m_ui->Check1->setChecked(m_options.AffImg() != 0);
    m_ui->Check2->setChecked(m_options.ImgDefaut() != 0);
    ChoisirParDefaut(m_ui->Check2->isChecked());
    connect(m_ui->Check2, &QCheckBox::toggled, this, &frmPrintOptions::ChoisirParDefaut);
    connect(m_ui->btParcourir1, &QPushButton::clicked, this, &frmPrintOptions::Parcourir);
    connect(m_ui->btOK, &QPushButton::clicked, this, &QDialog::accept);
}

frmPrintOptions::~frmPrintOptions() = default;

void frmPrintOptions::MettreTextes(const QString& texte, const QString& titre)
{
    m_ui->Text1->setText(texte);
    m_ui->Text2->setText(titre);
}

QString frmPrintOptions::Texte() const
{
    return m_ui->Text1->text();
}

QString frmPrintOptions::Titre() const
{
    return m_ui->Text2->text();
}

bool frmPrintOptions::ImageAffichee() const
{
    return m_ui->Check1->isChecked();
}

void frmPrintOptions::ChoisirParDefaut(bool parDefaut)
{
    m_ui->btParcourir1->setEnabled(!parDefaut);
    m_ui->Image1->setEnabled(!parDefaut);
    m_image = parDefaut ? m_ui->Image2->pixmap().toImage() : ImageDEntete(m_options);
    MontrerImage();
}

void frmPrintOptions::MontrerImage()
{
    const QSize place = m_ui->Image1->minimumSize() * devicePixelRatio();
    QPixmap image = QPixmap::fromImage(m_image);
    if (!image.isNull()) {
        image = image.scaled(place, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        image.setDevicePixelRatio(devicePixelRatio());
    }
    m_ui->Image1->setPixmap(image);
}

void frmPrintOptions::Parcourir()
{
    DemandeFichier demande;
    demande.depart = LireOption(Options::ImgInitDir);
    demande.types = {{LangMsg(u"msgImages"_s, u"Images"_s), u"*.bmp;*.jpg;*.gif;*.jpeg;*.jpe"_s}};
    const std::optional<ReponseFichier> reponse = DialogueOuvrir(demande);
    if (!reponse || reponse->fichiers.isEmpty() || !EstFichier(reponse->fichiers.first()))
        return;
    const QImage image = LireImage(reponse->fichiers.first(), PlaceDImage);
    if (image.isNull())
        return;
    if (!CopierImage(reponse->fichiers.first(), m_options.FichierImage())) {
        AfficherMsg(LangMsg(u"msgImageEntete"_s,
                            u"L'image n'a pas pu être copiée dans le dossier de la catégorie. L'image d'entête reste "
                            u"ce qu'elle était."_s),
                    MsgOk, NomDeFichier(reponse->fichiers.first()));
        return;
    }
    m_image = image;
    MontrerImage();
}

/// Every way out keeps what is set.
void frmPrintOptions::done(int issue)
{
    m_options.EcrireImage(m_ui->Check1->isChecked(), m_ui->Check2->isChecked());
    m_options.EcrireTextes(Titre(), Texte());
    QDialog::done(issue);
}
