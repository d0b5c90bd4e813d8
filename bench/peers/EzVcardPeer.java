import com.sun.management.OperatingSystemMXBean;
import ezvcard.Ezvcard;
import ezvcard.VCard;
import ezvcard.VCardVersion;
import ezvcard.property.ListProperty;
import ezvcard.property.SimpleProperty;
import ezvcard.property.VCardProperty;
import java.lang.management.ManagementFactory;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import java.util.Map;

/**
 * FILE open|read|write ROUNDS: the protocol of peer.h for ez-vcard, after 15 seconds of warming up.
 * Tells the mean of the rounds, for rubbish of one is collected in another.
 */
public class EzVcardPeer {
  private static final double WARM_SECONDS = 15;
  private static final OperatingSystemMXBean SYSTEM =
      (OperatingSystemMXBean) ManagementFactory.getOperatingSystemMXBean();

  private static byte[] bytes;
  private static List<VCard> written;
  private static long characters;

  private record Recovered(long cards, long items) {}

  private static double processorSeconds() {
    return SYSTEM.getProcessCpuTime() * 1e-9;
  }

  private static List<VCard> cards() {
    return Ezvcard.parse(new String(bytes, StandardCharsets.UTF_8)).all();
  }

  private static int length(VCardProperty property) {
    int length = property.getGroup() == null ? 0 : property.getGroup().length();
    for (Map.Entry<String, List<String>> parameter : property.getParameters()) {
      length += parameter.getKey().length();
      for (String value : parameter.getValue()) {
        length += value.length();
      }
    }
    // The values are objects of many kinds, all made in parsing.
    if (property instanceof SimpleProperty<?> simple && simple.getValue() instanceof String text) {
      length += text.length();
    } else if (property instanceof ListProperty<?> list) {
      length += list.getValues().size();
    }
    return length;
  }

  private static Recovered read() {
    List<VCard> cards = cards();
    long count = 0;
    for (VCard card : cards) {
      for (VCardProperty property : card) {
        ++count;
        characters += length(property);
      }
    }
    return new Recovered(cards.size(), count);
  }

  private static Recovered write() {
    String text = Ezvcard.write(written).version(VCardVersion.V3_0).go();
    return new Recovered(written.size(), text.getBytes(StandardCharsets.UTF_8).length);
  }

  private static Recovered round(String task) {
    return switch (task) {
      case "open" -> new Recovered(cards().size(), 0);
      case "read" -> read();
      default -> write();
    };
  }

  public static void main(String[] arguments) throws Exception {
    bytes = Files.readAllBytes(Path.of(arguments[0]));
    String task = arguments[1];
    if (task.equals("write")) {
      written = cards();
    }
    Recovered recovered = null;
    for (double start = processorSeconds(); processorSeconds() - start < WARM_SECONDS; ) {
      recovered = round(task);
    }
    int rounds = Integer.parseInt(arguments[2]);
    double begin = processorSeconds();
    for (int left = rounds; left > 0; --left) {
      recovered = round(task);
    }
    double seconds = (processorSeconds() - begin) / rounds;
    if (characters < 0) {
      throw new AssertionError(characters);
    }
    System.out.printf(
        (java.util.Locale) null, "%.6f %d %d%n", seconds, recovered.cards(), recovered.items());
  }
}
