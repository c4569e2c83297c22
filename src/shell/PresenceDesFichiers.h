// Which files of a list are there. A disk of the net that is gone keeps whoever asks waiting for minutes, so it is
// asked for aside, and told when it is known.
#pragma once

#include <QObject>
#include <QStringList>

#include <memory>

class PresenceDesFichiers : public QObject
{
    Q_OBJECT

public:
    explicit PresenceDesFichiers(QObject* parent = nullptr);
    ~PresenceDesFichiers() override;
    PresenceDesFichiers(const PresenceDesFichiers&) = delete;
    PresenceDesFichiers& operator=(const PresenceDesFichiers&) = delete;

    /// Asks for these files, and for no others any more.
    void Regarder(const QStringList& chemins);

signals:
    /// Those of the files asked for last that are no files now.
    void Absents(const QStringList& chemins);

private:
    struct Lien;

    void Partir();
    void Recevoir(const QStringList& absents);

    std::shared_ptr<Lien> m_lien; ///< to the thread, which may outlive this
    QStringList m_demandes;
    bool m_regarde = false; ///< one look at a time, however long it takes
    bool m_encore = false;
};
