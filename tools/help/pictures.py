"""The pictures of the help, taken from those of the dialogs that ./dev demo --windows leaves."""

import subprocess

# The picture in resources/help/pictures: the title of a window in the demo's pictures, whose names are
# <step>-<number>-<title>.png, and which of the pictures with this title it is.
SOURCES = {
    "account-list.png": ("Veltro-Account-List", 1),
    "add-account.png": ("Add-Preferred-Account", 1),
    "add-to-list.png": ("Add-To-List", 1),
    "attachment-advanced.png": ("Attachment-Sentry-Advance-settings", 1),
    "attachment-missing.png": ("Attachment-s-missing-Veltro", 1),
    "blind-copy.png": ("BCCed-e-mail-Veltro", 1),
    "confirm.png": ("Confirm-Email-Send-Veltro", 1),
    "delay.png": ("Delay-emails-Veltro", 1),
    "lock.png": ("Lock-Veltro-settings", 1),
    "missing-account.png": ("Select-Preferred-Account", 1),
    "no-subject.png": ("Empty-Subject-Veltro", 1),
    "old-subject.png": ("Is-the-Subject-to-this-email-correct-Veltro", 1),
    "reply-to-all.png": ("Reply-to-All-Veltro", 1),
    "reply.png": ("Multiple-recipients-Veltro", 1),
    "settings-intro.png": ("Settings", 1),
    "settings-reply.png": ("Settings", 2),
    "settings-subject.png": ("Settings", 3),
    "settings-attachment.png": ("Settings", 4),
    "settings-account.png": ("Settings", 5),
    "settings-confirm.png": ("Settings", 6),
    "settings-delay.png": ("Settings", 7),
    "settings-addresses.png": ("Settings", 8),
    "spam-mark.png": ("Remove-Spam-Mark-Phrases-Veltro", 1),
    "unlock.png": ("Unlock-Veltro-settings", 1),
    "wrong-account.png": ("Veltro", 1),
}


def order(path):
    step, number, _ = path.name.split("-", 2)
    return int(step), int(number)


def renew(demo, target):
    """Gives the pictures that the demo has not made."""
    target.mkdir(parents=True, exist_ok=True)
    taken, missing = sorted(demo.glob("*-*-*.png"), key=order), []
    for name, (title, which) in SOURCES.items():
        found = [path for path in taken if path.stem.split("-", 2)[2].strip("-") == title]
        if len(found) < which:
            missing.append(f"{name}: no picture {which} of {title} in {demo}")
            continue
        # 64 colours are plenty for a dialog, and a picture becomes a third of its size.
        small = ["+dither", "-colors", "64", "-strip", f"png8:{target / name}"]
        subprocess.run(["convert", found[which - 1], *small], check=True)
    return missing
