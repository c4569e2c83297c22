#include "ProgressionEnFenetre.h"

#include <ZelvanePlugin.h>

#include <QApplication>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds EntreDeuxImages(40);
constexpr int Pas = 1000;
constexpr int Largeur = 400;

/// The document's window is not told to those who export.
QWidget* FenetreDessous()
{
    for (QWidget* fenetre : {QApplication::activeModalWidget(), QApplication::activeWindow()}) {
        if (fenetre)
            return fenetre;
    }
    // Another program has the keys.
    const QWidgetList fenetres = QApplication::topLevelWidgets();
    const auto cadre = std::ranges::find_if(
        fenetres, [](const QWidget* fenetre) { return fenetre->isVisible() && fenetre->inherits("QMainWindow"); });
    return cadre == fenetres.end() ? nullptr : *cadre;
}

} // namespace

ProgressionEnFenetre::ProgressionEnFenetre(std::chrono::milliseconds delai) : m_delai(delai)
{
    m_depuis.start();
}

// The window under it may have taken it along.
ProgressionEnFenetre::~ProgressionEnFenetre()
{
    delete m_fenetre;
}

bool ProgressionEnFenetre::Avancer(int64_t fait, int64_t total)
{
    if (m_depuis.elapsed() < m_delai.count())
        return true;
    if (!m_fenetre)
        Ouvrir();
    m_fenetre->setValue(static_cast<int>(fait * Pas / std::max<int64_t>(total, 1)));
    QCoreApplication::processEvents();
    m_delai = EntreDeuxImages;
    m_depuis.restart();
    return !m_abandonnee && m_fenetre;
}

void ProgressionEnFenetre::Ouvrir()
{
    m_fenetre = new QProgressDialog(FenetreDessous());
    m_fenetre->setWindowTitle(zelvane::LangMsg(u"plugExportsTitre"_s, u"Exportation"_s));
    m_fenetre->setLabelText(zelvane::LangMsg(u"plugExportsEnCours"_s, u"Le fichier est en cours d'écriture."_s));
    m_fenetre->setCancelButtonText(zelvane::LangMsg(u"plugExportsAnnuler"_s, u"&Annuler"_s));
    m_fenetre->findChild<QProgressBar*>()->setAccessibleName(
        zelvane::LangMsg(u"plugExportsAvancement"_s, u"Avancement"_s));
    m_fenetre->setMinimumWidth(Largeur);
    m_fenetre->setWindowModality(Qt::ApplicationModal);
    // At the last step the disk is still busy.
    m_fenetre->setAutoReset(false);
    m_fenetre->setRange(0, Pas);
    m_fenetre->setMinimumDuration(0);
    QObject::connect(m_fenetre, &QProgressDialog::canceled, m_fenetre, [this] { m_abandonnee = true; });
    m_fenetre->show();
}
