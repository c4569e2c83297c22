// Plug-ins of many kinds, for tests: what the definitions of the build make of this one file.
#include <ZelvanePlugin.h>

#include <QFile>
#include <QVariant>

#include <csignal>
#include <stdexcept>
#include <unistd.h>

class Essai : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString Name READ Name)
    Q_PROPERTY(QString Description READ Description)
    Q_PROPERTY(QString Author READ Author)
#ifndef ESSAI_SANS_MEMBRE
    Q_PROPERTY(QString AuthorUrl READ AuthorUrl)
#endif
    Q_PROPERTY(QString EMail READ EMail)
    Q_PROPERTY(int VersionMajor READ VersionMajor)
    Q_PROPERTY(QString VersionMinor READ VersionMinor)
    Q_PROPERTY(int VersionRevision READ VersionRevision)
    Q_PROPERTY(QString OpenFilter READ OpenFilter)
    Q_PROPERTY(QString ExportFilter READ ExportFilter)

public:
    QString Name() const
    {
        return QStringLiteral(ESSAI_NOM);
    }
    QString Description() const
    {
        return QStringLiteral("Essaie");
    }
    QString Author() const
    {
        return QStringLiteral("Ida");
    }
    QString AuthorUrl() const
    {
        return QStringLiteral("https://exemple.invalid");
    }
    QString EMail() const
    {
        return QStringLiteral("ida@exemple.invalid");
    }
    int VersionMajor() const
    {
        return 1;
    }
    QString VersionMinor() const
    {
        return QStringLiteral("2b");
    }
    int VersionRevision() const
    {
        return 3;
    }
    QString OpenFilter() const
    {
        return QStringLiteral(ESSAI_NOM " (*.lst)|*.lst");
    }
    QString ExportFilter() const
    {
        return QStringLiteral(ESSAI_NOM " (*.out)|*.out");
    }

    Q_INVOKABLE void WhatIsIt(QString& genres) const
    {
        genres = QStringLiteral(ESSAI_GENRES);
    }
    Q_INVOKABLE void initme(QObject*& document, int fenetre)
    {
        m_document = document;
        m_fenetre = fenetre;
#ifdef ESSAI_LEVE
        throw std::runtime_error("cassé");
#endif
    }
#ifndef ESSAI_SANS_MEMBRE
    /// Adds an entry in front and tells what came in.
    Q_INVOKABLE void showForm()
    {
#ifdef ESSAI_PLANTE
        std::raise(SIGSEGV);
#endif
        auto* table = m_document->property("MyLV").value<QObject*>();
        auto* entrees = table->property("ListItems").value<QObject*>();
        QObject* entree = nullptr;
        QMetaObject::invokeMethod(entrees, "Add", Q_RETURN_ARG(QObject*, entree), Q_ARG(int, 1),
                                  Q_ARG(QString, QStringLiteral("kx")),
                                  Q_ARG(QString, QStringLiteral("venu|de\nloin")));
        m_document->setProperty("ScriptChemin", m_fenetre != 0 ? "avec fenetre" : "sans fenetre");
    }
#endif
    /// One row a line of the file, under two columns. A first line "renoncer" says that the user does not want it.
    Q_INVOKABLE void openFile(const QString& chemin)
    {
        QFile fichier(chemin);
        if (!fichier.open(QIODevice::ReadOnly))
            throw std::runtime_error("pas de fichier");
        zelvane::Table table(m_document);
        table.AjouterColonnes({QStringLiteral("Ligne"), QStringLiteral("Longueur")});
        QStringList cellules;
        while (!fichier.atEnd()) {
            const QString ligne = QString::fromUtf8(fichier.readLine()).trimmed();
            cellules << ligne << QString::number(ligne.size());
        }
        table.AjouterLignes(cellules);
        m_document->setProperty("IlFautSauver", true);
        if (cellules.startsWith(QStringLiteral("renoncer")))
            zelvane::Abandonner(m_document);
    }
    /// The table's first column, and the class for scripts.
    Q_INVOKABLE void ExportToFile(const QString& chemin)
    {
        QFile fichier(chemin);
        if (!fichier.open(QIODevice::WriteOnly))
            throw std::runtime_error("pas de place");
        const zelvane::Table table(m_document);
        const QStringList cellules = table.LireLignes(1, table.Lignes());
        for (qsizetype i = 0; i < cellules.size(); i += table.Colonnes())
            fichier.write(cellules.at(i).toUtf8() + '\n');
        QObject* script = zelvane::Creer("QrtScript");
        QString adresse;
        if (script)
            QMetaObject::invokeMethod(script, "UrlEncode", Q_RETURN_ARG(QString, adresse),
                                      Q_ARG(QString, QStringLiteral("a b")));
        delete script;
        fichier.write(adresse.toUtf8() + '\n' + QByteArray::number(m_fenetre) + '\n');
    }

private:
    QObject* m_document = nullptr;
    int m_fenetre = 0;
};

#if defined(ESSAI_SANS_ENTREE)
ZELVANE_BIBLIOTHEQUE
#elif defined(ESSAI_PEND)
ZELVANE_BIBLIOTHEQUE
extern "C" Q_DECL_EXPORT int DllRegisterServer()
{
    for (;;)
        pause();
}
#elif defined(ESSAI_ENTREE_LEVE)
ZELVANE_BIBLIOTHEQUE
extern "C" Q_DECL_EXPORT int DllRegisterServer()
{
    throw 1;
}
#else
ZELVANE_PLUGIN(ESSAI_NOM, Essai)
#endif

#include "plugin_essai.moc"
