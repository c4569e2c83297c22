#include "extensions/MessagesEnFenetre.h"

#include "extensions/frmMotDePasse.h"
#include "extensions/frmMsg.h"

#include <QApplication>

#include <algorithm>

namespace {

/// The window that a box belongs to. At the start, and while another program has the focus, none is active.
QWidget* FenetreDessous()
{
    if (QWidget* active = QApplication::activeWindow())
        return active;
    const QWidgetList fenetres = QApplication::topLevelWidgets();
    const auto visible = std::find_if(fenetres.begin(), fenetres.end(), [](const QWidget* fenetre) {
        return fenetre->isVisible() && fenetre->windowType() == Qt::Window;
    });
    return visible == fenetres.end() ? nullptr : *visible;
}

} // namespace

MessagesEnFenetre::MessagesEnFenetre() : m_precedent(InstallerPresentateur(this)) {}

MessagesEnFenetre::~MessagesEnFenetre()
{
    InstallerPresentateur(m_precedent);
}

int MessagesEnFenetre::Afficher(const Message& message, int genre, const QString& titre)
{
    frmMsg boite(message.texte, genre, titre, FenetreDessous());
    boite.exec();
    return boite.Resultat;
}

QString MessagesEnFenetre::DemanderMotDePasse(const QString& titre, const QString& invite)
{
    frmMotDePasse boite(titre, invite, FenetreDessous());
    boite.exec();
    return boite.MotDePasse();
}
