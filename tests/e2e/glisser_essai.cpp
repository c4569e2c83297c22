// A small program for test_glisser.py: another one of the desktop, from which a text can be dragged and on which one
// can be dropped. It says on its standard output, a line each, what happens.
//
//     glisser_essai SOURCE TARGET            the file that holds the text, in UTF-8, and the one that gets what is
//     dropped glisser_essai SOURCE TARGET fichier    the file itself is dragged
#include <QApplication>
#include <QDrag>
#include <QDropEvent>
#include <QFile>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>

#include <cstdio>

namespace {

void Dire(const char* ligne)
{
    std::printf("%s\n", ligne);
    std::fflush(stdout);
}

class Fenetre : public QLabel
{
public:
    Fenetre(QString source, QString cible, bool fichier)
        : m_source(std::move(source)), m_cible(std::move(cible)), m_fichier(fichier)
    {
        setWindowTitle(QStringLiteral("glisser_essai"));
        setAcceptDrops(true);
        resize(200, 150);
    }

protected:
    void mouseMoveEvent(QMouseEvent* event) override
    {
        if (!(event->buttons() & Qt::LeftButton))
            return;
        QFile fichier(m_source);
        if (!fichier.open(QIODevice::ReadOnly))
            return;
        auto* donnees = new QMimeData;
        if (m_fichier)
            donnees->setUrls({QUrl::fromLocalFile(m_source)});
        else
            donnees->setText(QString::fromUtf8(fichier.readAll()));
        auto* tirage = new QDrag(this);
        tirage->setMimeData(donnees);
        Dire("dragging");
        Dire(tirage->exec(Qt::CopyAction) == Qt::CopyAction ? "copied" : "refused");
    }
    void dragEnterEvent(QDragEnterEvent* event) override
    {
        if (event->mimeData()->hasText())
            event->acceptProposedAction();
    }
    void dropEvent(QDropEvent* event) override
    {
        QFile fichier(m_cible);
        if (fichier.open(QIODevice::WriteOnly))
            fichier.write(event->mimeData()->text().toUtf8());
        fichier.close();
        event->acceptProposedAction();
        Dire("dropped");
    }

private:
    QString m_source;
    QString m_cible;
    bool m_fichier;
};

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    if (argc != 3 && argc != 4)
        return 2;
    Fenetre fenetre(QFile::decodeName(argv[1]), QFile::decodeName(argv[2]), argc == 4);
    fenetre.show();
    return QApplication::exec();
}
