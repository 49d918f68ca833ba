#include "Base.h"

#include "Chemins.h"
#include "Cryptage.h"
#include "FichierEntier.h"
#include "IconesStock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <QStringList>

#include <openssl/evp.h>
#include <sqlcipher/sqlite3.h>

namespace Base {

namespace {

constexpr const char *kPhraseCle = "Tarvex";
// The engine's own derivation for a passphrase: 64,000 rounds of PBKDF2-HMAC-SHA1
// over the salt that opens the file. Doing it ourselves once per file, then opening
// with the derived key, spares every later open that cost; the file stays readable
// with the plain passphrase by any client.
constexpr int kToursDerivation = 64000;
constexpr int kTailleSel = 16;
constexpr int kTailleCle = 32;

struct CleDerivee {
    QByteArray sel;
    QByteArray cleHex;  // "x'...'" ready for PRAGMA key
};

QHash<QString, CleDerivee> &cacheCles() {
    static QHash<QString, CleDerivee> cache;
    return cache;
}

QString nomFichier(const QString &chemin) { return QFileInfo(chemin).fileName(); }

QString cheminEffectif(const QString &chemin) { return chemin.isEmpty() ? Chemins::cheminBase() : chemin; }

// The salt is the first 16 bytes of an existing encrypted file.
QByteArray lireSel(const QString &chemin) {
    QFile f(chemin);
    if (!f.open(QIODevice::ReadOnly)) return {};
    QByteArray sel = f.read(kTailleSel);
    return sel.size() == kTailleSel ? sel : QByteArray();
}

QByteArray deriverCle(const QByteArray &sel) {
    unsigned char cle[kTailleCle];
    PKCS5_PBKDF2_HMAC_SHA1(kPhraseCle, int(qstrlen(kPhraseCle)), reinterpret_cast<const unsigned char *>(sel.constData()),
                           int(sel.size()), kToursDerivation, kTailleCle, cle);
    return "x'" + QByteArray(reinterpret_cast<const char *>(cle), kTailleCle).toHex() + "'";
}

// The key statement for this file: the derived raw key when the file already has
// its salt, the passphrase itself for a file being created.
QByteArray instructionCle(const QString &chemin) {
    const QByteArray sel = lireSel(chemin);
    if (sel.isEmpty()) return QByteArray("PRAGMA key='") + kPhraseCle + "';";
    auto &cache = cacheCles();
    auto it = cache.find(chemin);
    if (it == cache.end() || it->sel != sel) it = cache.insert(chemin, CleDerivee{sel, deriverCle(sel)});
    return "PRAGMA key=\"" + it->cleHex + "\";";
}

}  // namespace

ErreurBase::ErreurBase(const QString &message, int code)
    : std::runtime_error(message.toStdString()), message_(message), code_(code) {}

void verifier(int code, const QString &nom) {
    if (code == SQLITE_OK || code == SQLITE_ROW || code == SQLITE_DONE) return;
    // The engine's own texts are English: each case says in French what it means here.
    switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        throw ErreurBase(QStringLiteral("La base %1 est utilisée par un autre programme.\n"
                                        "Fermez-le, puis recommencez : rien n'a été modifié.")
                             .arg(nom),
                         code);
    case SQLITE_READONLY:
    case SQLITE_PERM:
        throw ErreurBase(QStringLiteral("La base %1 est en lecture seule : la modification n'a pas été enregistrée.\n"
                                        "Vérifiez les droits du fichier et de son dossier.")
                             .arg(nom),
                         code);
    case SQLITE_CANTOPEN:
        throw ErreurBase(QStringLiteral("Impossible d'ouvrir la base %1.\n"
                                        "Vérifiez qu'elle existe et que son dossier est accessible.")
                             .arg(nom),
                         code);
    case SQLITE_NOTADB:
        throw ErreurBase(QStringLiteral("Le fichier %1 n'est pas une base Korvane, "
                                        "ou il est protégé par un autre mot de passe.")
                             .arg(nom),
                         code);
    case SQLITE_FULL:
        throw ErreurBase(QStringLiteral("Le disque est plein : la modification n'a pas été enregistrée dans %1.").arg(nom), code);
    case SQLITE_CORRUPT:
        throw ErreurBase(QStringLiteral("La base %1 est endommagée.").arg(nom), code);
    case SQLITE_IOERR:
        throw ErreurBase(QStringLiteral("Le disque n'a pas pu lire ou écrire la base %1 : rien n'a été modifié.").arg(nom), code);
    case SQLITE_NOMEM:
        throw ErreurBase(QStringLiteral("La mémoire manque pour lire la base %1 : rien n'a été modifié.").arg(nom), code);
    case SQLITE_ERROR:
        throw ErreurBase(QStringLiteral("La base %1 n'a pas la forme d'une base Korvane : l'opération a été refusée, "
                                        "rien n'a été modifié.")
                             .arg(nom),
                         code);
    default:
        throw ErreurBase(QStringLiteral("La base %1 a refusé l'opération (erreur %2) : rien n'a été modifié.").arg(nom).arg(code), code);
    }
}

Connexion::Connexion(const QString &chemin, bool creer, const QString &nomAffiche, bool lecture)
    : chemin_(cheminEffectif(chemin)), affiche_(nomAffiche.isEmpty() ? nomFichier(chemin_) : nomAffiche), endommagee_(estEndommagee(chemin_)) {
    const QByteArray cheminLocal = QFile::encodeName(chemin_);
    // The owner's own choice stands, even for an account the system lets write anywhere.
    const QFileInfo info(chemin_);
    lecture = lecture || endommagee_ || (info.exists() && !(info.permissions() & QFileDevice::WriteOwner));
    const int mode = lecture ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | (creer ? SQLITE_OPEN_CREATE : 0);
    const int code = sqlite3_open_v2(cheminLocal.constData(), &db_, mode, nullptr);
    try {
        verifier(code);
        sqlite3_busy_timeout(db_, 1500);
        executer(instructionCle(chemin_).constData());
        // The first read is where a wrong key or a foreign file shows.
        executer("SELECT count(*) FROM sqlite_master;");
    } catch (...) {
        sqlite3_close_v2(db_);
        db_ = nullptr;
        throw;
    }
}

Connexion::~Connexion() {
    if (transaction_) sqlite3_exec(db_, "ROLLBACK;", nullptr, nullptr, nullptr);
    sqlite3_close_v2(db_);
}

void Connexion::executer(const char *sql) { verifier(sqlite3_exec(db_, sql, nullptr, nullptr, nullptr)); }

void Connexion::verifier(int code) const {
    if (endommagee_ && (code & 0xff) == SQLITE_READONLY)
        throw ErreurBase(QStringLiteral("La base %1 est endommagée : Korvane la garde en lecture seule, "
                                        "la modification n'a pas été enregistrée.\n"
                                        "Pour reprendre une base saine, utilisez « Ouvrir une base ».")
                             .arg(affiche_),
                         code);
    Base::verifier(code, affiche_);
}

int Connexion::changements() const { return sqlite3_changes(db_); }

qint64 Connexion::dernierRowid() const { return sqlite3_last_insert_rowid(db_); }

void Connexion::debutTransaction() {
    executer("BEGIN IMMEDIATE;");
    transaction_ = true;
}

void Connexion::valider() {
    executer("COMMIT;");
    transaction_ = false;
}

Requete::Requete(Connexion &connexion, const char *sql) : connexion_(connexion) {
    connexion_.verifier(sqlite3_prepare_v2(connexion_.db(), sql, -1, &stmt_, nullptr));
}

Requete::~Requete() { sqlite3_finalize(stmt_); }

Requete &Requete::lier(int indice, int valeur) {
    sqlite3_bind_int(stmt_, indice, valeur);
    return *this;
}

Requete &Requete::lier(int indice, qint64 valeur) {
    sqlite3_bind_int64(stmt_, indice, valeur);
    return *this;
}

Requete &Requete::lier(int indice, const QString &valeur) {
    const QByteArray u = valeur.toUtf8();
    sqlite3_bind_text(stmt_, indice, u.constData(), int(u.size()), SQLITE_TRANSIENT);
    return *this;
}

Requete &Requete::lierOctets(int indice, const QByteArray &valeur) {
    sqlite3_bind_blob(stmt_, indice, valeur.constData(), int(valeur.size()), SQLITE_TRANSIENT);
    return *this;
}

Requete &Requete::lierNull(int indice) {
    sqlite3_bind_null(stmt_, indice);
    return *this;
}

bool Requete::suivante() {
    const int code = sqlite3_step(stmt_);
    if (code == SQLITE_ROW) return true;
    if (code == SQLITE_DONE) return false;
    connexion_.verifier(code);
    return false;
}

void Requete::executer() {
    while (suivante()) {
    }
    // Ready to be bound and run again: a statement not reset refuses new values.
    sqlite3_reset(stmt_);
}

bool Requete::estNull(int colonne) const { return sqlite3_column_type(stmt_, colonne) == SQLITE_NULL; }

int Requete::entier(int colonne) const { return sqlite3_column_int(stmt_, colonne); }

qint64 Requete::entierLong(int colonne) const { return sqlite3_column_int64(stmt_, colonne); }

QString Requete::texte(int colonne) const {
    const auto *t = reinterpret_cast<const char *>(sqlite3_column_text(stmt_, colonne));
    return t ? depuisUtf8(QByteArrayView(t, sqlite3_column_bytes(stmt_, colonne))) : QString();
}

QByteArrayView Requete::texteUtf8(int colonne) const {
    const auto *t = reinterpret_cast<const char *>(sqlite3_column_text(stmt_, colonne));
    return t ? QByteArrayView(t, sqlite3_column_bytes(stmt_, colonne)) : QByteArrayView();
}

QByteArray Requete::octets(int colonne) const {
    const void *b = sqlite3_column_blob(stmt_, colonne);
    return b ? QByteArray(static_cast<const char *>(b), sqlite3_column_bytes(stmt_, colonne)) : QByteArray();
}

QByteArrayView Requete::octetsBlob(int colonne) const {
    if (sqlite3_column_type(stmt_, colonne) != SQLITE_BLOB) return {};
    const void *b = sqlite3_column_blob(stmt_, colonne);
    return b ? QByteArrayView(static_cast<const char *>(b), sqlite3_column_bytes(stmt_, colonne)) : QByteArrayView();
}

QStringList dossiersModeles() {
    return {QStringLiteral("Comptes"), QStringLiteral("Logiciels"), QStringLiteral("Favoris"),
            QStringLiteral("Messagerie"), QStringLiteral("Réseau"), QStringLiteral("Sites web")};
}

namespace {

const char *const kSchema =
    "CREATE TABLE Compte (NumCompte INTEGER, Login TEXT, Pass TEXT);"
    "CREATE TABLE Dossiers (NumCompte INTEGER, Num INTEGER, Nom TEXT);"
    "CREATE TABLE Documents (NumCompte INTEGER, Num INTEGER, NumDossier INTEGER, Titre TEXT, LoginDoc TEXT,"
    " MotDePasse TEXT, Url TEXT, Fichier TEXT, DateDebut TEXT, DateFin TEXT, Remarques TEXT, Icone INTEGER DEFAULT 0);"
    "CREATE TABLE Icones (Num INTEGER, ico BLOB, Libelle TEXT);"
    "CREATE INDEX DossiersCompte ON Dossiers (NumCompte, Num);"
    "CREATE INDEX DocumentsCompte ON Documents (NumCompte, NumDossier);"
    "CREATE INDEX DocumentsNum ON Documents (Num);";

void creerBase(const QString &chemin) {
    // Built under a temporary name and renamed at the end, so that a failure half
    // way never leaves a base without its templates or icons.
    const QString provisoire = chemin + QStringLiteral(".creation");
    QFile::remove(provisoire);
    try {
        // Made empty, for the user alone, before the engine writes a byte in it.
        QFile vide(provisoire);
        if (!vide.open(QIODevice::WriteOnly) || !vide.setPermissions(FichierEntier::kDroitsProprietaire))
            throw ErreurBase(QStringLiteral("Impossible de créer la base %1 : %2.\n"
                                            "Vérifiez les droits du dossier du programme et la place libre sur le disque.")
                                 .arg(nomFichier(chemin), FichierEntier::raisonEchec(vide)));
        vide.close();
        Connexion c(provisoire, true, nomFichier(chemin));
        c.debutTransaction();
        c.executer(kSchema);
        const QStringList modeles = dossiersModeles();
        for (int i = 0; i < modeles.size(); ++i) {
            Requete r(c, "INSERT INTO Dossiers (NumCompte, Num, Nom) VALUES (0, ?, ?)");
            r.lier(1, i + 1).lier(2, modeles[i]).executer();
        }
        const auto icones = IconesStock::icones();
        for (int i = 0; i < icones.size(); ++i) {
            Requete r(c, "INSERT INTO Icones (Num, ico, Libelle) VALUES (?, ?, ?)");
            r.lier(1, i + 1).lierOctets(2, icones[i].octets).lier(3, icones[i].libelle).executer();
        }
        c.valider();
    } catch (...) {
        QFile::remove(provisoire);
        throw;
    }
    if (!QFile::rename(provisoire, chemin)) {
        QFile::remove(provisoire);
        throw ErreurBase(QStringLiteral("Impossible de créer la base %1 : le fichier n'a pas pu prendre sa place.\n"
                                        "Vérifiez les droits du dossier du programme.")
                             .arg(nomFichier(chemin)));
    }
}

// The columns each table must have; a base edited elsewhere may have more.
struct TableAttendue {
    const char *nom;
    std::initializer_list<const char *> colonnes;
};
const TableAttendue kTables[] = {
    {"Compte", {"NumCompte", "Login", "Pass"}},
    {"Dossiers", {"NumCompte", "Num", "Nom"}},
    {"Documents", {"NumCompte", "Num", "NumDossier", "Titre", "LoginDoc", "MotDePasse", "Url", "Fichier", "DateDebut", "DateFin", "Remarques", "Icone"}},
    {"Icones", {"Num", "ico", "Libelle"}},
};

// What the base lacks, in French, or empty when it has every table and column.
QString manqueSchema(Connexion &c) {
    for (const TableAttendue &t : kTables) {
        QStringList presentes;
        // The pragma takes no parameter; the names are our own constants.
        const QByteArray sql = QByteArray("PRAGMA table_info(\"") + t.nom + "\")";
        Requete r(c, sql.constData());
        while (r.suivante()) presentes << r.texte(1);
        if (presentes.isEmpty()) return QStringLiteral("la table %1 manque").arg(QString::fromLatin1(t.nom));
        for (const char *colonne : t.colonnes)
            if (!presentes.contains(QString::fromLatin1(colonne), Qt::CaseInsensitive))
                return QStringLiteral("la colonne %1 manque dans la table %2").arg(QString::fromLatin1(colonne), QString::fromLatin1(t.nom));
    }
    return {};
}

}  // namespace

namespace {

QSet<QString> &basesEndommagees() {
    static QSet<QString> bases;
    return bases;
}

QString cle(const QString &chemin) { return QFileInfo(cheminEffectif(chemin)).absoluteFilePath(); }

// The engine's own check of every page, index and row; a page it can't even read
// (its authentication fails) is damage as well.
bool integre(Connexion &c) {
    sqlite3_stmt *st = nullptr;
    int code = sqlite3_prepare_v2(c.db(), "PRAGMA integrity_check", -1, &st, nullptr);
    bool saine = false;
    if (code == SQLITE_OK) {
        code = sqlite3_step(st);
        saine = code == SQLITE_ROW && qstrcmp(reinterpret_cast<const char *>(sqlite3_column_text(st, 0)), "ok") == 0 &&
                sqlite3_step(st) == SQLITE_DONE;
    }
    sqlite3_finalize(st);
    const int base = code & 0xff;
    if (!saine && base != SQLITE_ROW && base != SQLITE_CORRUPT && base != SQLITE_NOTADB && base != SQLITE_IOERR) c.verifier(code);
    return saine;
}

enum class Etat { Saine,
                  Endommagee };

// Throws ErreurBase when the file is no Korvane base; says whether it is damaged inside.
Etat examiner(const QString &chemin) {
    Connexion c(chemin, false, QString(), true);
    const QString manque = manqueSchema(c);
    if (!manque.isEmpty())
        throw ErreurBase(QStringLiteral("Le fichier %1 n'est pas une base Korvane complète : %2.\nIl n'a pas été modifié.")
                             .arg(nomFichier(cheminEffectif(chemin)), manque));
    return integre(c) ? Etat::Saine : Etat::Endommagee;
}

}  // namespace

bool estBaseKorvane(const QString &chemin, QString *raison) {
    try {
        if (examiner(chemin) == Etat::Saine) return true;
        if (raison)
            *raison = QStringLiteral(
                          "La base %1 est endommagée : la vérification de son contenu y trouve des erreurs.\n"
                          "Elle n'a pas été modifiée.")
                          .arg(nomFichier(cheminEffectif(chemin)));
        return false;
    } catch (const ErreurBase &e) {
        if (raison) *raison = e.message();
        return false;
    }
}

bool estEndommagee(const QString &chemin) { return basesEndommagees().contains(cle(chemin)); }

void oublierEndommagee(const QString &chemin) { basesEndommagees().remove(cle(chemin)); }

QString cheminSauvegarde(const QString &chemin) { return cheminEffectif(chemin) + QStringLiteral(".bak"); }

QString cheminVerrou(const QString &chemin) { return cheminEffectif(chemin) + QStringLiteral(".lock"); }

QString preparerBase(const QString &cheminDemande) {
    const QString chemin = cheminEffectif(cheminDemande);
    const QFileInfo info(chemin);
    if (info.isSymLink() && !info.exists())
        throw ErreurBase(QStringLiteral("La base %1 est un lien vers un fichier qui n'existe pas :\n%2\n"
                                        "Rétablissez ce fichier, ou supprimez le lien pour commencer une base neuve.")
                             .arg(nomFichier(chemin), info.symLinkTarget()));
    oublierEndommagee(chemin);
    if (!info.exists()) {
        creerBase(chemin);
        return {};
    }
    // Its key is known to all: only the files' rights keep other users out.
    FichierEntier::reserverAuProprietaire(chemin);
    FichierEntier::reserverAuProprietaire(cheminSauvegarde(chemin));
    const QString sauvegarde = QDir::toNativeSeparators(cheminSauvegarde(chemin));
    const bool copie = QFileInfo(cheminSauvegarde(chemin)).isFile();
    Etat etat = Etat::Saine;
    try {
        etat = examiner(chemin);
    } catch (const ErreurBase &e) {
        // A base that can't be read at all: the copy before it is the way back. A base
        // only in use elsewhere, or out of reach, needs no such advice.
        const int code = e.code() & 0xff;
        if (!copie || (e.code() != 0 && code != SQLITE_CORRUPT && code != SQLITE_NOTADB)) throw;
        throw ErreurBase(e.message() + QStringLiteral("\nLa base précédente est gardée dans %1 : pour la reprendre, "
                                                      "donnez-lui le nom %2.")
                                           .arg(sauvegarde, nomFichier(chemin)),
                         e.code());
    }
    if (etat == Etat::Saine) return {};
    basesEndommagees().insert(cle(chemin));
    QString avis = QStringLiteral(
                       "La base %1 est endommagée : la vérification de son contenu y trouve des erreurs.\n"
                       "Korvane l'ouvre en lecture seule : vous pouvez lire ce qu'elle contient, rien n'y sera écrit.\n")
                       .arg(nomFichier(chemin));
    if (copie)
        avis += QStringLiteral(
                    "La base précédente est gardée dans %1 : pour la reprendre, choisissez "
                    "« Ouvrir une base », puis ce fichier.")
                    .arg(sauvegarde);
    else
        avis += QStringLiteral(
                    "Aucune copie de la base précédente (%1) n'existe : si vous en avez enregistré une ailleurs, "
                    "choisissez « Ouvrir une base », puis cette copie.")
                    .arg(sauvegarde);
    return avis;
}

}  // namespace Base
