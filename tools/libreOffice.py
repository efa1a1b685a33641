"""LibreOffice as a reader of Word's files and their macros: one of our own, which ends with its profile."""

import contextlib
import os
import signal
import subprocess
import tempfile
import threading
import time
from pathlib import Path

import uno
import unohelper
from com.sun.star.beans import PropertyValue
from com.sun.star.connection import NoConnectException
from com.sun.star.lang import XMultiServiceFactory, XServiceInfo, XSingleComponentFactory
from com.sun.star.script import XInvocation
from com.sun.star.uno import Exception as UnoException
from com.sun.star.uno import RuntimeException as UnoRuntimeException

PATIENCE = 120  # Seconds. All of it, start and end included, takes a few.
FACTORY = "com.sun.star.bridge.OleObjectFactory"
RUN_MACROS_WITHOUT_ASKING = 4  # com.sun.star.document.MacroExecMode


class AutomationObject(unohelper.Base, XInvocation):
    """An object as macros see it: `call` gets the name and the arguments of each of its methods."""

    def __init__(self, call):
        self.call = call

    def getIntrospection(self):
        return None

    def hasMethod(self, name):
        return True

    def hasProperty(self, name):
        return False

    def invoke(self, name, arguments, changed_places, changed_arguments):
        return self.call(name, arguments), (), ()


class ObjectFactory(unohelper.Base, XServiceInfo, XSingleComponentFactory, XMultiServiceFactory):
    """What Basic's CreateObject asks; on Windows this would be COM. `create` makes an object of a program id."""

    def __init__(self, create):
        self.create = create

    def getImplementationName(self):
        return FACTORY

    def supportsService(self, name):
        return name == FACTORY

    def getSupportedServiceNames(self):
        return (FACTORY,)

    def createInstanceWithContext(self, context):
        return self

    def createInstance(self, name):
        return self.create(name)


class LibreOffice:
    """A running one. Macros that it runs get from `create` what they create."""

    def __init__(self, context, create):
        self.manager = context.ServiceManager
        self.desktop = self.manager.createInstanceWithContext("com.sun.star.frame.Desktop", context)
        self.manager.insert(ObjectFactory(create))

    @contextlib.contextmanager
    def opened(self, path):
        """The document of a file. Raises ValueError for a file that LibreOffice cannot read."""
        settings = {"Hidden": True, "ReadOnly": True, "MacroExecutionMode": RUN_MACROS_WITHOUT_ASKING}
        arguments = tuple(PropertyValue(Name=name, Value=value) for name, value in settings.items())
        document = self.desktop.loadComponentFromURL(path.resolve().as_uri(), "_blank", 0, arguments)
        if document is None:
            raise ValueError("LibreOffice cannot read it")
        try:
            yield document
        finally:
            document.close(True)


def connected(program, pipe):
    local = uno.getComponentContext()
    resolver = local.ServiceManager.createInstanceWithContext("com.sun.star.bridge.UnoUrlResolver", local)
    while program.poll() is None:
        with contextlib.suppress(NoConnectException):
            return resolver.resolve(f"uno:pipe,name={pipe};urp;StarOffice.ComponentContext")
        time.sleep(0.1)
    raise ValueError(f"soffice ended with status {program.returncode}")


@contextlib.contextmanager
def started(create):
    """A LibreOffice. It ends at the latest when PATIENCE does, with an error for who still waits for it."""
    with tempfile.TemporaryDirectory() as folder:
        pipe = Path(folder).name
        program = subprocess.Popen(
            ["soffice", f"-env:UserInstallation={Path(folder).as_uri()}", "--headless", "--norestore", "--nologo",
             f"--accept=pipe,name={pipe};urp"],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True)  # fmt: skip
        alarm = threading.Timer(PATIENCE, os.killpg, (program.pid, signal.SIGKILL))
        alarm.start()
        try:
            office = LibreOffice(connected(program, pipe), create)
            yield office
            with contextlib.suppress(UnoException):  # It may have gone already.
                office.desktop.terminate()
                program.wait()
        finally:
            alarm.cancel()
            if program.poll() is None:
                os.killpg(program.pid, signal.SIGKILL)
                program.wait()
