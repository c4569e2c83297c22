// The frame with its tool bars, for tests that press their buttons.
#pragma once

#include "CadreEnFenetre.h"

#include "shell/Toolbars.h"
#include "support/FermeModales.h"

#include <QToolBar>
#include <QToolButton>

#include <stdexcept>

class BarresEnFenetre : public CadreEnFenetre
{
protected:
    QToolBar& BarreDe(int numero) const
    {
        return *cadre->findChild<QToolBar*>(QStringLiteral("Toolbar%1").arg(numero));
    }
    QAction& Bouton(const QString& cle, int barre = 1) const
    {
        for (QAction* bouton : BarreDe(barre).actions()) {
            if (bouton->data().toString() == cle)
                return *bouton;
        }
        throw std::out_of_range(cle.toStdString());
    }
    /// Presses a button with the mouse.
    void Presser(const QString& cle, int barre = 1) const
    {
        QTest::mouseClick(BarreDe(barre).widgetForAction(&Bouton(cle, barre)), Qt::LeftButton);
    }
    QStringList Disponibles(int barre) const
    {
        QStringList cles;
        for (const QAction* bouton : BarreDe(barre).actions()) {
            if (bouton->isEnabled())
                cles.append(bouton->data().toString());
        }
        return cles;
    }
    QAction& MenuDe(const Form1& fenetre, const QString& nom) const { return *fenetre.findChild<QAction*>(nom); }
};
