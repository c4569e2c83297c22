#include "kit/frmAvancement.h"

#include "extensions/langue/LangForm.h"
#include "kit/FenetreDessous.h"
#include "kit/Icones.h"
#include "ui_frmAvancement.h"

#include <QCloseEvent>
#include <QCoreApplication>

namespace {

constexpr std::chrono::milliseconds EntreDeuxImages(40);

} // namespace

frmAvancement::frmAvancement(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::frmAvancement>())
{
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    m_ui->setupUi(this);
    m_ui->btAnnuler->hide();
    m_ui->btAnnuler->setIcon(Icone(QStringLiteral("annuler")));
    connect(m_ui->btAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    LangForm(*this);
}

frmAvancement::~frmAvancement() = default;

void frmAvancement::Montrer(int fait, int total)
{
    m_ui->PB->setRange(0, total);
    m_ui->PB->setValue(fait);
}

void frmAvancement::PermettreAbandon()
{
    m_ui->btAnnuler->show();
}

/// The window stays until the operation has heard of it.
void frmAvancement::reject()
{
    m_abandonne = !m_ui->btAnnuler->isHidden();
}

void frmAvancement::closeEvent(QCloseEvent* event)
{
    reject();
    event->ignore();
}

AvancementEnFenetre::AvancementEnFenetre(std::chrono::milliseconds delai, Abandon abandon)
    : m_delai(delai), m_abandon(abandon)
{
    m_depuis.start();
}

AvancementEnFenetre::~AvancementEnFenetre() = default;

void AvancementEnFenetre::Dire(int fait, int total)
{
    if (m_depuis.elapsed() < m_delai.count())
        return;
    if (!m_fenetre) {
        m_fenetre = std::make_unique<frmAvancement>(FenetreDessous());
        if (m_abandon == Abandon::Permis)
            m_fenetre->PermettreAbandon();
        m_fenetre->show();
        m_delai = EntreDeuxImages;
    }
    m_fenetre->Montrer(fait, total);
    // Clicks and keys too: the window blocks all others, so that what is typed at them is dropped and not kept for
    // later.
    QCoreApplication::processEvents();
    m_depuis.restart();
}
