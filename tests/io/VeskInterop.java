// The JDK side of JavaInteropTest.cpp. "read <file>" reads the fixed sequence below with
// DataInputStream and prints one value a line (strings as hex code units);
// "write <file>" writes the same sequence with DataOutputStream;
// "bytes <file>" writes the values whose encodings differ on purpose.
import java.io.*;

public class VeskInterop {
  static String units(String s) {
    StringBuilder b = new StringBuilder("s:");
    for (int i = 0; i < s.length(); i++) b.append(String.format("%04X", (int) s.charAt(i)));
    return b.toString();
  }

  static final int[] INTS = {0, 1, -1, 16909060, Integer.MIN_VALUE, Integer.MAX_VALUE};
  static final short[] SHORTS = {0, -2, Short.MIN_VALUE, Short.MAX_VALUE};
  static final byte[] BYTES = {0, 1, -1, -128, 127};
  static final String[] STRINGS = {"", "hello", "h\u00e9", "\u20ac\u4e2d\u0800\u07ff\u007f\uffff",
                                   "\u20ac".repeat(21845)};

  public static void main(String[] args) throws Exception {
    String mode = args[0];
    if (mode.equals("read")) {
      DataInputStream in = new DataInputStream(new BufferedInputStream(new FileInputStream(args[1])));
      for (int i = 0; i < INTS.length; i++) System.out.println("i:" + in.readInt());
      for (int i = 0; i < SHORTS.length; i++) System.out.println("h:" + in.readShort());
      System.out.println("H:" + in.readUnsignedShort());
      System.out.println("z:" + in.readBoolean());
      System.out.println("z:" + in.readBoolean());
      for (int i = 0; i < BYTES.length; i++) System.out.println("b:" + in.readByte());
      System.out.println("B:" + in.readUnsignedByte());
      for (int i = 0; i < STRINGS.length; i++) System.out.println(units(in.readUTF()));
      // A four-byte sequence is not modified UTF-8.
      try {
        in.readUTF();
        System.out.println("accepted");
      } catch (UTFDataFormatException e) {
        System.out.println("malformed");
      }
      System.out.println("eof:" + in.read());
    } else if (mode.equals("write")) {
      DataOutputStream out = new DataOutputStream(new FileOutputStream(args[1]));
      for (int v : INTS) out.writeInt(v);
      for (short v : SHORTS) out.writeShort(v);
      out.writeShort(65535);
      out.writeBoolean(true);
      out.writeBoolean(false);
      for (byte v : BYTES) out.writeByte(v);
      out.writeByte(200);
      for (String s : STRINGS) out.writeUTF(s);
      out.close();
    } else {
      DataOutputStream out = new DataOutputStream(new FileOutputStream(args[1]));
      out.writeFloat(1.0f);
      out.writeDouble(1.0);
      out.writeUTF("a\u0000b");
      out.writeUTF("\ud83d\ude00");
      out.close();
    }
  }
}
