#include "store/Def.h"
#include "support/EnvironnementTest.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

QString lire(const QString &chemin) {
    QFile f(chemin);
    f.open(QIODevice::ReadOnly);
    return QString::fromUtf8(f.readAll());
}

QString sortieDe(const QString &outil, const QStringList &arguments) {
    QProcess p;
    p.start(outil, arguments);
    p.waitForFinished(20000);
    return QString::fromUtf8(p.readAllStandardOutput()).trimmed();
}

}  // namespace

TEST(Association, EnregistreLeTypeLEntreeLIconeEtLApplicationParDefaut) {
    EnvironnementTest env(false);
    const QDir donnees(qEnvironmentVariable("XDG_DATA_HOME"));
    const QDir config(qEnvironmentVariable("XDG_CONFIG_HOME"));
    ASSERT_TRUE(donnees.absolutePath().startsWith(env.dossier.path()));

    // The user's other choices survive.
    QDir().mkpath(config.absolutePath());
    {
        QFile f(config.filePath("mimeapps.list"));
        f.open(QIODevice::WriteOnly);
        f.write("[Default Applications]\ntext/plain=editeur.desktop\napplication/x-korvane=ancien.desktop\n");
    }
    // Rights of their own whatever the umask: the folders made the user's, the files for all to read.
    const mode_t umaskAvant = ::umask(0);
    AssocierExtension();
    ::umask(umaskAvant);
    for (const char *fichier : {"mime/packages/korvane.xml", "applications/korvane.desktop", "icons/hicolor/48x48/apps/korvane.png"})
        EXPECT_EQ(EnvironnementTest::mode(donnees.filePath(fichier)), 0644) << fichier;
    EXPECT_EQ(EnvironnementTest::mode(donnees.absolutePath()), 0700);
    for (const char *dossier : {"mime/packages", "applications", "icons/hicolor/48x48"})
        EXPECT_EQ(EnvironnementTest::mode(donnees.filePath(dossier)), 0700) << dossier;

    EXPECT_TRUE(lire(donnees.filePath("mime/packages/korvane.xml")).contains("<glob pattern=\"*.kvx\"/>"));
    const QString entree = lire(donnees.filePath("applications/korvane.desktop"));
    EXPECT_TRUE(entree.contains("Exec=\"" + QCoreApplication::applicationFilePath() + "\" %f\n")) << entree.toStdString();
    EXPECT_EQ(QProcess::execute("desktop-file-validate", {donnees.filePath("applications/korvane.desktop")}), 0);
    EXPECT_TRUE(QFile::exists(donnees.filePath("icons/hicolor/scalable/apps/korvane.svg")));

    const QString liste = lire(config.filePath("mimeapps.list"));
    EXPECT_TRUE(liste.contains("text/plain=editeur.desktop"));
    EXPECT_TRUE(liste.contains("application/x-korvane=korvane.desktop\n"));
    EXPECT_FALSE(liste.contains("ancien.desktop"));

    // Twice is the same as once.
    AssocierExtension();
    EXPECT_EQ(lire(config.filePath("mimeapps.list")), liste);

    // What the desktop itself answers, where its tools are installed.
    if (!QStandardPaths::findExecutable("xdg-mime").isEmpty() && !QStandardPaths::findExecutable("update-mime-database").isEmpty()) {
        const QString fichier = env.chemin("coffre.kvx");
        QFile(fichier).open(QIODevice::WriteOnly);
        EXPECT_EQ(sortieDe("xdg-mime", {"query", "filetype", fichier}), "application/x-korvane");
        EXPECT_EQ(sortieDe("xdg-mime", {"query", "default", "application/x-korvane"}), "korvane.desktop");
    }
}

TEST(Association, UnDisquePleinLaisseMimeappsEntier) {
    EnvironnementTest env(false);
    const QDir config(qEnvironmentVariable("XDG_CONFIG_HOME"));
    QDir().mkpath(config.absolutePath());
    QByteArray avant = "[Default Applications]\n";
    for (int i = 0; avant.size() < 8192; ++i) avant += "application/x-autre-" + QByteArray::number(i) + "=autre.desktop\n";
    {
        QFile f(config.filePath("mimeapps.list"));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(avant);
    }
    // No file may grow past 4 KB, as on a full disk: the write fails half way.
    struct rlimit ancienne {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &ancienne), 0);
    const auto ancienSignal = std::signal(SIGXFSZ, SIG_IGN);
    struct rlimit petite = ancienne;
    petite.rlim_cur = 4096;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &petite), 0);
    AssocierExtension();
    setrlimit(RLIMIT_FSIZE, &ancienne);
    std::signal(SIGXFSZ, ancienSignal);
    const QByteArray apres = lire(config.filePath("mimeapps.list")).toUtf8();
    EXPECT_EQ(apres.size(), avant.size());
    EXPECT_TRUE(apres == avant) << apres.right(200).toStdString();
}
