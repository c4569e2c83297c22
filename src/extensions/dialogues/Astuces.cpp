#include "extensions/dialogues/Astuces.h"

#include "platform/PageDeCode.h"
#include "platform/Temps.h"

#include <QFile>
#include <QFileInfo>

std::optional<QStringList> LireAstuces(const QString& chemin)
{
    if (!QFileInfo(chemin).isFile())
        return std::nullopt;
    QFile fichier(chemin);
    if (!fichier.open(QIODevice::ReadOnly))
        return std::nullopt;
    QStringList lignes;
    while (!fichier.atEnd()) {
        QByteArray ligne = fichier.readLine();
        if (ligne.endsWith('\n'))
            ligne.chop(1);
        if (ligne.endsWith('\r'))
            ligne.chop(1);
        lignes.append(PageDeCode::VersTexte(ligne));
    }
    return lignes;
}

int TirerAstuce(qsizetype nombre, Hasard& hasard)
{
    const int tiree = static_cast<int>(hasard.Tirer() * static_cast<double>(nombre)) + 1;
    return tiree > nombre ? 1 : tiree;
}
