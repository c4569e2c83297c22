#include "shell/frmPolice.h"

#include "extensions/langue/LangForm.h"
#include "kit/Icones.h"
#include "ui_frmPolice.h"

#include <QColorDialog>
#include <QEvent>
#include <QFontDatabase>

using namespace Qt::StringLiterals;

namespace {

constexpr int CoteDeCouleur = 16;

} // namespace

frmPolice::frmPolice(const ReglagesDePolice& depart, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmPolice>()), m_choix(depart)
{
    m_ui->setupUi(this);
    m_ui->btOK->setIcon(Icone(u"ok"_s));
    m_ui->btAnnuler->setIcon(Icone(u"annuler"_s));
    Remplir();
    Relier();
    MontrerExemple();
    LangForm(*this);
}

frmPolice::~frmPolice() = default;

void frmPolice::Remplir()
{
    QStringList familles = QFontDatabase::families();
    // One that is not installed can stay, or come back with another computer.
    if (!familles.contains(m_choix.nom))
        familles.prepend(m_choix.nom);
    m_ui->Nom->addItems(familles);
    m_ui->Nom->setCurrentText(m_choix.nom);
    m_ui->Taille->setValue(m_choix.taille);
    m_ui->Gras->setChecked(m_choix.gras);
    m_ui->Italique->setChecked(m_choix.italique);
}

void frmPolice::Relier()
{
    connect(m_ui->Nom, &QComboBox::currentTextChanged, this, [this](const QString& nom) {
        m_choix.nom = nom;
        MontrerExemple();
    });
    connect(m_ui->Taille, &QDoubleSpinBox::valueChanged, this, [this](double taille) {
        m_choix.taille = taille;
        MontrerExemple();
    });
    connect(m_ui->Gras, &QCheckBox::toggled, this, [this](bool gras) {
        m_choix.gras = gras;
        MontrerExemple();
    });
    connect(m_ui->Italique, &QCheckBox::toggled, this, [this](bool italique) {
        m_choix.italique = italique;
        MontrerExemple();
    });
    connect(m_ui->btCouleur, &QPushButton::clicked, this, &frmPolice::ChoisirCouleur);
    connect(m_ui->btOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->btAnnuler, &QPushButton::clicked, this, &QDialog::reject);
}

void frmPolice::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        MontrerExemple();
}

void frmPolice::MontrerExemple()
{
    m_ui->Exemple->setPalette(PaletteDExemple(m_choix));
    m_ui->Exemple->setFont(PoliceDe(m_choix));
    QPixmap tache(CoteDeCouleur, CoteDeCouleur);
    tache.fill(CouleurDe(m_choix).value_or(palette().color(QPalette::Text)));
    m_ui->btCouleur->setIcon(tache);
}

/// Black is the theme's own colour, which is white in a dark one.
void frmPolice::ChoisirCouleur()
{
    const QString titre = m_ui->btCouleur->text().remove(u'&');
    const QColor choisie = QColorDialog::getColor(CouleurDe(m_choix).value_or(Qt::black), this, titre);
    if (!choisie.isValid())
        return;
    m_choix.couleur = choisie.red() | choisie.green() << 8 | choisie.blue() << 16;
    MontrerExemple();
}

ReglagesDePolice ChoisirPolice(const ReglagesDePolice& depart, QWidget& parent)
{
    frmPolice form(depart, &parent);
    return form.exec() == QDialog::Accepted ? form.Choix() : depart;
}
