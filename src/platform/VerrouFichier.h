// A file held against other programs that would write it.
#pragma once

#include <QByteArray>
#include <QString>

/// A lock of each kind there is, as far as the file system knows them: other programs use one or the other. It ends
/// with the object or the process.
class VerrouFichier
{
public:
    explicit VerrouFichier(const QString& chemin);
    ~VerrouFichier();
    VerrouFichier(const VerrouFichier&) = delete;
    VerrouFichier& operator=(const VerrouFichier&) = delete;

    /// Whether nobody else holds the file that stands at the path now: it may have been replaced since. What is not
    /// there, or cannot be opened, nobody holds.
    bool Tient() const;

private:
    bool Poser() const;

    QByteArray m_octets;
    int m_descripteur = -1;
    bool m_refuse = false;
};
