package com.corvane.tv.zntopology;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertNotNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.File;
import java.io.IOException;
import java.net.URI;
import java.net.URISyntaxException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Path;
import java.util.jar.Attributes;
import java.util.jar.JarFile;
import org.junit.jupiter.api.Test;

/** In JVMs that find no library: the class loads its library once. */
class LibraryLoadingTest {
  @Test
  void aLibraryThatIsNotThereIsAnErrorThatSaysWhatToDo() {
    System.setProperty(ZorbNative.LIBRARY_PROPERTY, "/nowhere/libzntopo.so");
    UnsatisfiedLinkError error = assertThrows(UnsatisfiedLinkError.class, Topology::new);
    assertNotNull(error.getCause());
    String message = error.getMessage();
    assertTrue(message.contains("zntopo.library names /nowhere/libzntopo.so"), message);
    assertTrue(message.contains("-Dzntopo.library=/folder/libzntopo.so"), message);
    assertTrue(message.contains("-Djava.library.path=/folder"), message);
  }

  @Test
  void aLibraryThatIsInNoFolderIsAnErrorThatSaysWhatToDo() throws Exception {
    Process process =
        new ProcessBuilder(
                Path.of(System.getProperty("java.home"), "bin", "java").toString(),
                "-Djava.library.path=/nowhere", "-cp", System.getProperty("java.class.path"),
                "com.corvane.tv.zntopology.Soak", "1")
            .redirectErrorStream(true)
            .start();
    String message = new String(process.getInputStream().readAllBytes(), StandardCharsets.UTF_8);
    assertNotEquals(0, process.waitFor());
    assertTrue(message.contains("UnsatisfiedLinkError: The library libzntopo.so"), message);
    assertTrue(message.contains("java.library.path is /nowhere"), message);
    assertTrue(message.contains("-Dzntopo.library=/folder/libzntopo.so"), message);
    assertTrue(message.contains("-Djava.library.path=/folder"), message);
  }

  @Test
  void theJarSaysWhatItIs() throws IOException, URISyntaxException {
    URI jar = TopoStatusCode.class.getProtectionDomain().getCodeSource().getLocation().toURI();
    try (JarFile file = new JarFile(new File(jar))) {
      Attributes values = file.getManifest().getMainAttributes();
      assertEquals("ZNTopo", values.getValue("Implementation-Title"));
      assertTrue(values.getValue("Implementation-Version").matches("\\d+\\.\\d+\\.\\d+"));
      assertEquals("com.corvane.tv.zntopology", values.getValue("Automatic-Module-Name"));
    }
  }
}
