// A plug-in to start from: it opens and exports texts of one line an entry, and adds a command that numbers the
// entries. Members that the program does not ask a plug-in of its kinds for can go.
#include <ZelvanePlugin.h>

#include <QFile>
#include <QSaveFile>
#include <stdexcept>

class Modele : public QObject
{
    Q_OBJECT
    // Shown in the window of all plug-ins.
    Q_PROPERTY(QString Name MEMBER m_nom CONSTANT)
    Q_PROPERTY(QString Description MEMBER m_description CONSTANT)
    Q_PROPERTY(QString Author MEMBER m_auteur CONSTANT)
    Q_PROPERTY(QString AuthorUrl MEMBER m_page CONSTANT)
    Q_PROPERTY(QString EMail MEMBER m_adresse CONSTANT)
    Q_PROPERTY(int VersionMajor MEMBER m_version CONSTANT)
    Q_PROPERTY(int VersionMinor MEMBER m_revision CONSTANT)
    Q_PROPERTY(int VersionRevision MEMBER m_revision CONSTANT)
    // One label and one pattern each.
    Q_PROPERTY(QString OpenFilter MEMBER m_filtre CONSTANT)
    Q_PROPERTY(QString ExportFilter MEMBER m_filtre CONSTANT)

public:
    Q_INVOKABLE void WhatIsIt(QString& genres) { genres = QStringLiteral("open export other"); }

    Q_INVOKABLE void initme(QObject* document, int fenetre)
    {
        m_document = document;
        Q_UNUSED(fenetre)
    }

    Q_INVOKABLE void showForm()
    {
        zelvane::Table table(m_document);
        const int colonnes = table.Colonnes();
        for (int ligne = 1; ligne <= table.Lignes(); ligne += Paquet) {
            QStringList cellules = table.LireLignes(ligne, Paquet);
            for (int i = 0; i * colonnes < cellules.size(); ++i)
                cellules[i * colonnes].prepend(QString::number(ligne + i) + QStringLiteral(". "));
            table.EcrireLignes(ligne, cellules);
        }
    }

    Q_INVOKABLE void openFile(const QString& chemin)
    {
        QFile fichier(chemin);
        if (!fichier.open(QIODevice::ReadOnly))
            throw std::runtime_error("le fichier ne s'ouvre pas"); // the user is told
        zelvane::Table table(m_document);
        table.AjouterColonnes({QStringLiteral("Titre")});
        QStringList cellules;
        while (!fichier.atEnd()) {
            QByteArray ligne = fichier.readLine();
            while (ligne.endsWith('\n') || ligne.endsWith('\r'))
                ligne.chop(1);
            cellules << QString::fromUtf8(ligne);
            if (cellules.size() == Paquet) {
                table.AjouterLignes(cellules);
                cellules.clear();
            }
        }
        table.AjouterLignes(cellules);
    }

    Q_INVOKABLE void ExportToFile(const QString& chemin)
    {
        // What was there stays until all is written.
        QSaveFile fichier(chemin);
        if (!fichier.open(QIODevice::WriteOnly))
            throw std::runtime_error("le fichier ne peut pas être écrit");
        const zelvane::Table table(m_document);
        const int colonnes = table.Colonnes();
        for (int ligne = 1; ligne <= table.Lignes(); ligne += Paquet) {
            const QStringList cellules = table.LireLignes(ligne, Paquet);
            for (int i = 0; i < cellules.size(); i += colonnes)
                fichier.write(cellules.at(i).toUtf8() + '\n');
        }
        if (!fichier.commit())
            throw std::runtime_error("le disque est plein, ou le fichier ne peut pas être écrit");
    }

private:
    static constexpr int Paquet = 5000; // rows at a time

    QString m_nom = QStringLiteral("Modèle");
    QString m_description = QStringLiteral("Un point de départ");
    QString m_auteur = QStringLiteral("Vous");
    QString m_page;
    QString m_adresse;
    QString m_filtre = QStringLiteral("Une ligne par entrée (*.txt)|*.txt");
    int m_version = 1;
    int m_revision = 0;
    QObject* m_document = nullptr;
};

// The name is that of the file without ".dll".
ZELVANE_PLUGIN("Modele", Modele)

#include "Modele.moc"
