#include "updates/dialogs/update_messages.hpp"

#include <QCoreApplication>

namespace updates {
namespace {

class UpdateMessages {
    Q_DECLARE_TR_FUNCTIONS(updates::UpdateMessages)

  public:
    static QString titleOf(const scene::Failed& failed, const QString& product);
    static QString textOf(const UpdateFailure& failure, const QString& product);
    static Remedy remedyOf(UpdateProblem problem);
    static QString textOf(const NothingSuitable& reason, const QString& product);
    static QString textOf(const scene::ManagedElsewhere& scene, const QString& product);
};

QString UpdateMessages::titleOf(const scene::Failed& failed, const QString& product) {
    switch (failed.failure.problem) {
    case UpdateProblem::wrongLength:
    case UpdateProblem::archiveTooLarge:
    case UpdateProblem::signatureMissing:
    case UpdateProblem::signatureWrong:
    case UpdateProblem::archiveDamaged:
    case UpdateProblem::archiveUnsafe:
    case UpdateProblem::otherProduct:
    case UpdateProblem::otherPlatform:
    case UpdateProblem::otherVersion:
    case UpdateProblem::notNewer:
        return tr("The update was refused");
    case UpdateProblem::noMemory:
    case UpdateProblem::noSpace:
    case UpdateProblem::noPermission:
    case UpdateProblem::readOnly:
    case UpdateProblem::inputOutput:
    case UpdateProblem::installerMissing:
    case UpdateProblem::installerStopped:
        return tr("The update couldn’t be installed");
    case UpdateProblem::busy:
        return tr("Another window is updating");
    case UpdateProblem::alreadyInstalled:
        return tr("The update is installed already");
    case UpdateProblem::relaunchFailed:
        //: %1 is the name of the program
        return tr("%1 couldn’t be relaunched").arg(product);
    default:
        return failed.doing == scene::Failed::While::looking
                   //: %1 is the name of the program
                   ? tr("%1 couldn’t look for updates").arg(product)
                   //: %1 is the name of the program
                   : tr("%1 couldn’t get the update").arg(product);
    }
}

QString UpdateMessages::textOf(const UpdateFailure& failure, const QString& product) {
    const QString& detail = failure.detail;
    switch (failure.problem) {
    case UpdateProblem::offline:
        //: %1 is the name of a server
        return tr("The server %1 wasn’t found. Check your internet connection, then try again.")
            .arg(detail);
    case UpdateProblem::noAnswer:
        return tr("The update server doesn’t answer. It may be down for a short time, or a "
                  "firewall may be in the way. Try again later.");
    case UpdateProblem::proxyRefused:
        return tr("The proxy of your network didn’t let the connection through. Check the proxy "
                  "settings of your system.");
    case UpdateProblem::certificateUntrusted:
        //: %1 is the name of a server
        return tr("The server %1 couldn’t prove that it is the real one. Somebody may be listening "
                  "in, or this network wants you to sign in first. Try another network.")
            .arg(detail);
    case UpdateProblem::certificateExpired:
        //: %1 is the name of a server
        return tr("The certificate of the server %1 has expired, so it isn’t trusted. Its owner "
                  "has "
                  "to renew it. Try again in a few days.")
            .arg(detail);
    case UpdateProblem::clockLooksWrong:
        //: %1 is a date
        return tr("This computer’s clock says %1, which looks wrong, so no secure connection is "
                  "possible. Set the date and time, then try again.")
            .arg(detail);
    case UpdateProblem::insecureAddress:
        return tr("The server wanted to answer over a connection that isn’t encrypted. "
                  "That was refused. Try again later, or get the new version from the website.");
    case UpdateProblem::tooManyRedirects:
        return tr("The server sent the request from place to place without an end. Try again "
                  "later.");
    case UpdateProblem::serverError:
        //: %1 is a number, the status of an HTTP answer
        return tr("The update server reported the error %1. Try again later.").arg(detail);
    case UpdateProblem::notOnServer:
        return tr("What was looked for isn’t on the update server at the moment. Try again later, "
                  "or get the new version from the website.");
    case UpdateProblem::signInFirst:
        return tr("This network answered with a page of its own. It may want you to sign in: open "
                  "any website in your browser, then try again.");
    case UpdateProblem::tooSlow:
        return tr("The connection is too slow, or it stalled. Try again with a better one.");
    case UpdateProblem::connectionLost:
        return tr("The connection was lost again and again. Try again later; nothing was changed.");

    case UpdateProblem::noKey:
        //: %1 is the name of the program
        return tr("This copy of %1 was built without the maker’s key, so it can’t tell a genuine "
                  "list of updates from a forged one. Get the new version from the website.")
            .arg(product);
    case UpdateProblem::feedNotSigned:
        //: %1 is the name of the program
        return tr("The list of updates isn’t signed by the maker of %1, or was changed on its way, "
                  "so it wasn’t read. Try again later, on another network if you can.")
            .arg(product);
    case UpdateProblem::feedSuperseded:
        return tr("The server sent an older list of updates than it did before. It wasn’t used. "
                  "Try again later, on another network if you can.");
    case UpdateProblem::feedExpired:
        //: %1 is the name of the program
        return tr("The list of updates is out of date: the maker of %1 hasn’t renewed it, or "
                  "somebody keeps newer ones from you. Check that this computer’s date is right, "
                  "try another network, or look on the website.")
            .arg(product);
    case UpdateProblem::feedTooLarge:
        return tr("The list of updates on the server is far larger than it can be, so it wasn’t "
                  "read. Try again later.");
    case UpdateProblem::feedUnreadable:
        return tr("The list of updates on the server is damaged. Try again later.");
    case UpdateProblem::feedForbidden:
        return tr("The list of updates on the server contains something that doesn’t belong there, "
                  "so it wasn’t read. Try again later.");

    case UpdateProblem::wrongLength:
        return tr("The download doesn’t have the size that was announced. It was thrown away. Try "
                  "again later.");
    case UpdateProblem::archiveTooLarge:
        return tr(
            "The update is far larger than it can be. It was thrown away. Please tell the maker.");
    case UpdateProblem::signatureMissing:
        return tr(
            "The update isn’t signed, so nobody can tell who made it. It was thrown away. Get "
            "the new version from the website.");
    case UpdateProblem::signatureWrong:
        //: %1 is the name of the program
        return tr("The update isn’t signed by the maker of %1, or was changed on its way. It was "
                  "thrown away. Try again later, on another network if you can.")
            .arg(product);
    case UpdateProblem::archiveDamaged:
        return tr("The update is damaged and can’t be unpacked. It was thrown away. Try again "
                  "later.");
    case UpdateProblem::archiveUnsafe:
        return tr("The update contains files that have no place in it. It was thrown away. Please "
                  "tell the maker.");
    case UpdateProblem::otherProduct:
        //: %1 is the name of the program
        return tr("What was downloaded isn’t %1 but another program. It was thrown away. Try again "
                  "later.")
            .arg(product);
    case UpdateProblem::otherPlatform:
        return tr("The update is for another kind of computer. It was thrown away. Get the right "
                  "one from the website.");
    case UpdateProblem::otherVersion:
        return tr("The update isn’t the version that was announced. It was thrown away. Try again "
                  "later.");
    case UpdateProblem::notNewer:
        return tr("The update isn’t newer than what is, or once was, installed here. It was thrown "
                  "away.");

    case UpdateProblem::noMemory:
        return tr("There isn’t enough memory for the download. Close other programs, then try "
                  "again.");
    case UpdateProblem::noSpace:
        return tr("The disk is full. Make room, then try again. Your version is unchanged.");
    case UpdateProblem::noPermission:
        //: %1 is the name of the program
        return tr("You aren’t allowed to change the folder of %1. Ask whoever installed it, or "
                  "move "
                  "it to a folder of your own.")
            .arg(product);
    case UpdateProblem::readOnly:
        //: %1 is the name of the program
        return tr("%1 is in a place that can only be read. Move it to a folder of your own, then "
                  "try again.")
            .arg(product);
    case UpdateProblem::inputOutput:
        return tr(
            "The disk reported an error. Your version is unchanged. Check the disk before you "
            "try again.");
    case UpdateProblem::busy:
        //: %1 is the name of the program
        return tr("An update is being installed by another window of %1. Wait until it is done.")
            .arg(product);
    case UpdateProblem::alreadyInstalled:
        //: %1 is the name of the program
        return tr("Another window of %1 has installed this update already. Quit the program and "
                  "start it again to use it.")
            .arg(product);
    case UpdateProblem::installerMissing:
        //: %1 is the name of the program
        return tr("This copy of %1 isn’t complete: the part that installs updates is missing. Get "
                  "the new version from the website.")
            .arg(product);
    case UpdateProblem::installerStopped:
        return tr("The installation was interrupted. Your version is unchanged. Try again.");
    case UpdateProblem::relaunchFailed:
        //: %1 is the name of the program
        return tr("The update is installed. Quit %1 and start it again to use it.").arg(product);
    }
    Q_UNREACHABLE();
}

Remedy UpdateMessages::remedyOf(UpdateProblem problem) {
    switch (problem) {
    case UpdateProblem::insecureAddress:
    case UpdateProblem::notOnServer:
    case UpdateProblem::noKey:
    case UpdateProblem::feedExpired:
    case UpdateProblem::signatureMissing:
    case UpdateProblem::archiveUnsafe:
    case UpdateProblem::otherPlatform:
    case UpdateProblem::installerMissing:
        return Remedy::website;
    case UpdateProblem::archiveTooLarge:
    case UpdateProblem::notNewer:
    case UpdateProblem::signatureWrong: // the same server would send the same again
    case UpdateProblem::busy:
    case UpdateProblem::noPermission:
    case UpdateProblem::readOnly:
    case UpdateProblem::alreadyInstalled:
    case UpdateProblem::relaunchFailed:
        return Remedy::none;
    default:
        return Remedy::again;
    }
}

QString UpdateMessages::textOf(const NothingSuitable& reason, const QString& product) {
    const QString version = shownVersion(reason.item);
    switch (reason.why) {
    case NothingSuitable::Why::nothingForThisSystem:
        //: %1 is the name of the program
        return tr("The list of updates has nothing for %1 on this kind of computer.").arg(product);
    case NothingSuitable::Why::notSigned:
        //: %1 is the name of the program, %2 a version
        return tr("%1 %2 is announced, but it isn’t signed, so nobody can tell who made it. Try "
                  "again later.")
            .arg(product, version);
    case NothingSuitable::Why::insecureAddress:
        //: %1 is the name of the program, %2 a version
        return tr("%1 %2 is announced, but not at an address with a secure connection. Try again "
                  "later.")
            .arg(product, version);
    case NothingSuitable::Why::unknownLength:
    case NothingSuitable::Why::tooLarge:
        //: %1 is the name of the program, %2 a version
        return tr("%1 %2 is announced with a size that can’t be right. Try again later.")
            .arg(product, version);
    case NothingSuitable::Why::needsNewerSystem:
        //: %1 is the name of the program, %2 a version of it, %3 one of the system’s kernel
        return tr("%1 %2 needs a newer system: Linux %3 or later. Update your system first.")
            .arg(product, version, shownVersion(reason.item.minimumSystemVersion));
    case NothingSuitable::Why::belowHighestInstalled:
        //: %1 is the name of the program, %2 a version
        return tr("%1 %2 is announced, but a newer version was installed here before. It isn’t "
                  "replaced by an older one.")
            .arg(product, version);
    case NothingSuitable::Why::skipped:
    case NothingSuitable::Why::notYetForThisGroup:
        //: %1 is the name of the program, %2 a version
        return tr("%1 %2 is announced, but not for this computer yet. Try again in a few days.")
            .arg(product, version);
    }
    Q_UNREACHABLE();
}

QString UpdateMessages::textOf(const scene::ManagedElsewhere& scene, const QString& product) {
    switch (scene.management) {
    case Management::dpkg:
        //: %1 is the name of the program, %2 the new version, %3 the name of a package
        return tr("%1 %2 is available. This copy comes from the package “%3” and is updated "
                  "together with your system.")
            .arg(product, scene.version, scene.packageName);
    case Management::flatpak:
        //: %1 is the name of the program, %2 the new version, %3 the name of a Flatpak
        return tr("%1 %2 is available. This copy is the Flatpak “%3” and is updated by Flatpak or "
                  "your software center.")
            .arg(product, scene.version, scene.packageName);
    case Management::readOnly:
        //: %1 is the name of the program, %2 the new version
        return tr("%1 %2 is available. You can’t change the folder of this copy: whoever installed "
                  "it looks after its updates.")
            .arg(product, scene.version);
    case Management::gone:
        //: %1 is the name of the program, %2 the new version
        return tr("%1 %2 is available. The folder of this copy was moved or removed while it ran: "
                  "quit it, and start it from where it is now.")
            .arg(product, scene.version);
    case Management::itself:
    case Management::nobody:
        break;
    }
    //: %1 is the name of the program, %2 the new version
    return tr("%1 %2 is available. This copy was built from its sources and can’t update itself: "
              "whoever built it looks after it.")
        .arg(product, scene.version);
}

} // namespace

std::optional<UpdateMessage> messageOf(const UpdateScene& scene, const QString& product) {
    if (const auto* const failed = std::get_if<scene::Failed>(&scene)) {
        return UpdateMessage{UpdateMessages::titleOf(*failed, product),
                             UpdateMessages::textOf(failed->failure, product),
                             UpdateMessages::remedyOf(failed->failure.problem)};
    }
    if (const auto* const upToDate = std::get_if<scene::UpToDate>(&scene)) {
        return UpdateMessage{
            UpdateMessages::tr("You’re up to date"),
            //: %1 is the name of the program, %2 its version
            UpdateMessages::tr("%1 %2 is the newest version.").arg(product, upToDate->version)};
    }
    if (const auto* const unsuitable = std::get_if<scene::Unsuitable>(&scene)) {
        return UpdateMessage{UpdateMessages::tr("There is no update for this computer"),
                             UpdateMessages::textOf(unsuitable->reason, product)};
    }
    if (const auto* const managed = std::get_if<scene::ManagedElsewhere>(&scene)) {
        return UpdateMessage{UpdateMessages::tr("A new version is available"),
                             UpdateMessages::textOf(*managed, product),
                             managed->management == Management::nobody ||
                                     managed->management == Management::itself
                                 ? Remedy::website
                                 : Remedy::none};
    }
    return std::nullopt;
}

} // namespace updates
