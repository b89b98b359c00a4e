<?xml version="1.0" encoding="UTF-8"?>
<!-- Makes the page behind the help button: docs/guide/guide.xml with the messages of the catalogue in the place of
     its instruction "messages". Each message is found by "C" and its number.
     Its parameter "catalogue" is the path of LogMessage.xml. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:output method="html" doctype-system="about:legacy-compat" encoding="UTF-8" indent="yes"/>
  <xsl:param name="catalogue"/>

  <xsl:template match="@*|node()">
    <xsl:copy><xsl:apply-templates select="@*|node()"/></xsl:copy>
  </xsl:template>
  <xsl:template match="comment()"/>

  <xsl:template match="processing-instruction('messages')">
    <table class="messages">
      <thead><tr><th>コード</th><th>メッセージ</th><th>対処</th></tr></thead>
      <tbody>
        <!-- Trace lines are for the log; a host never meets them in a box. -->
        <xsl:for-each select="document($catalogue)/doc/log/message[logging &gt;= 2 and restore != '']">
          <xsl:sort select="@code" data-type="number" order="descending"/>
          <tr id="C{@code}">
            <td>C<xsl:value-of select="@code"/></td>
            <td><xsl:value-of select="contents"/></td>
            <td><xsl:value-of select="restore"/></td>
          </tr>
        </xsl:for-each>
      </tbody>
    </table>
  </xsl:template>
</xsl:stylesheet>
